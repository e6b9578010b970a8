#include <messagebox.h>

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QTimer>

using Show = QMessageBox::StandardButton (*)(QWidget *, const QString &, const QString &, QMessageBox::StandardButtons);
Q_DECLARE_METATYPE(Show)

class tst_MessageBox : public QObject
{
    Q_OBJECT
private slots:
    void passesTheMessageThrough_data();
    void passesTheMessageThrough();
};

void tst_MessageBox::passesTheMessageThrough_data()
{
    QTest::addColumn<Show>("show");
    QTest::addColumn<int>("icon");
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("answer");
    using B = QMessageBox;
    // The other kinds' icons are checked through the capture where the
    // editor shows them (a warning in tst_gridpointtable, a critical box in
    // tst_editingcommands, an information in tst_camdesignerview).
    QTest::newRow("question") << Show(&MessageBox::question) << int(B::Question) << int(B::Yes | B::No) << int(B::No);
}

// Without a capture (which every other test uses) the message reaches a
// modal box, answered here the way a user would.
void tst_MessageBox::passesTheMessageThrough()
{
    QFETCH(Show, show);
    QFETCH(int, icon);
    QFETCH(int, buttons);
    QFETCH(int, answer);
    const QString title = QStringLiteral("Speichern der Datei Fehlgeschlagen.");
    const QString text = QString::fromUtf8("Überschreiben nicht möglich.");
    const QStringList expected { QString::number(icon), title, text, QString::number(buttons) };
    QStringList seen;
    QTimer::singleShot(0, this, [&] {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *box = qobject_cast<QMessageBox *>(widget)) {
                seen << QString::number(box->icon()) << box->windowTitle() << box->text()
                     << QString::number(box->standardButtons());
                box->button(QMessageBox::StandardButton(answer))->click();
            }
        }
    });
    QCOMPARE(int(show(nullptr, title, text, QMessageBox::StandardButtons(buttons))), answer);
    QCOMPARE(seen, expected);
}

QTEST_MAIN(tst_MessageBox)
#include "tst_messagebox.moc"
