#include "resources/camdesignerresources.h"

#include <QFile>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QTest>

class tst_Resources : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void icon_data();
    void icon();
    void styleSheetLeavesRoomForTheWindowsRule();
};

void tst_Resources::initTestCase()
{
    initializeCamDesignerResources();
}

void tst_Resources::icon_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("cellSize"); // invalid: a tool bar icon

    for (const char *name : {"Movementplan.png", "Scaling.png", "CalculatedTable.png", "DeltaTable.png",
                             "AxisTable.png", "CamView.png", "saveParameters.png", "exportMotionplan.png",
                             "importParameterExtern.png", "exportGridPointsText.png", "deleteGrid.png",
                             "importMotionplanProject.png",
                             "importMotionplanExternal.png", "undo.ico", "redo.ico", "showUndo.png",
                             "Position.png", "Velocity.png", "acceleration.png", "jerk.png", "CurveReport.png",
                             "measure.png"}) {
        QTest::newRow(name) << QStringLiteral(":/Resources/") + QLatin1String(name) << QSize();
    }
    QTest::newRow("Error") << QStringLiteral(":/Resources/General/Error_16x16.png") << QSize(16, 16);
    QTest::newRow("Empty") << QStringLiteral(":/Resources/General/Empty_16x16.png") << QSize(16, 16);
}

// Every icon loads at the size its use needs (an .ico holds its own 16, 24
// and 32 px images) and is drawn, except the empty cell icon, which only holds
// the place. Enough of each icon's pixels stand out against a light and
// against a dark background.
void tst_Resources::icon()
{
    QFETCH(QString, path);
    QFETCH(QSize, cellSize);

    QImage image;
    if (cellSize.isValid()) {
        image = QImage(path);
        QCOMPARE(image.size(), cellSize);
    } else {
        const QIcon icon(path);
        QCOMPARE(icon.actualSize(QSize(32, 32)), QSize(32, 32)); // scaled down, never up, for 16 and 24 px
        if (path.endsWith(QLatin1String(".ico"))) {
            for (int size : {16, 24, 32})
                QVERIFY(icon.availableSizes().contains(QSize(size, size)));
        }
        image = icon.pixmap(32, 32).toImage();
    }
    image = image.convertToFormat(QImage::Format_ARGB32);

    int drawn = 0;
    int standsOutOnLight = 0;
    int standsOutOnDark = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() < 128)
                continue;
            ++drawn;
            standsOutOnLight += pixel.lightness() < 160;
            standsOutOnDark += pixel.lightness() > 96;
        }
    }
    if (path.endsWith(QLatin1String("Empty_16x16.png"))) {
        QCOMPARE(drawn, 0);
        return;
    }
    const int pixels = image.width() * image.height();
    QVERIFY2(drawn * 10 >= pixels, "less than a tenth of the icon is drawn");
    QVERIFY2(standsOutOnLight * 10 >= drawn, "hardly visible on a light background");
    QVERIFY2(standsOutOnDark * 10 >= drawn, "hardly visible on a dark background");
}

// The window appends one rule of its own to the sheet: an unclosed block or
// comment at the end of the sheet would swallow it.
void tst_Resources::styleSheetLeavesRoomForTheWindowsRule()
{
    QFile file(QStringLiteral(":/Resources/CamDesigner.qss"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString sheet = QString::fromUtf8(file.readAll());
    QVERIFY(!sheet.trimmed().isEmpty());

    const QColor appended(0x12, 0x34, 0x56);
    QWidget window;
    auto *label = new QLabel(&window);
    window.setStyleSheet(sheet + QStringLiteral("QLabel{color: %1;}").arg(appended.name()));
    label->ensurePolished();
    QCOMPARE(label->palette().color(QPalette::WindowText), appended);
}

QTEST_MAIN(tst_Resources)
#include "tst_resources.moc"
