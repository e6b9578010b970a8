#include "camdesigner/messagebox.h"
#include "messagecapture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QTimer>

class tst_MessageBox : public QObject
{
    Q_OBJECT
private slots:
    void captureRecordsAndAnswers();
    void captureRestoresPreviousHandler();
    void withoutHandlerTheModalBoxIsShown();
};

void tst_MessageBox::captureRecordsAndAnswers()
{
    MessageCapture capture(QMessageBox::No);
    const auto answer = MessageBox::question(nullptr, QStringLiteral("Titel"), QStringLiteral("Frage?"));
    QCOMPARE(answer, QMessageBox::No);
    MessageBox::warning(nullptr, QStringLiteral("Warnung"), QStringLiteral("Text"));
    QCOMPARE(capture.count(), 2);
    QCOMPARE(capture.messages().at(0).icon, QMessageBox::Question);
    QCOMPARE(capture.messages().at(0).buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(capture.last().icon, QMessageBox::Warning);
    QCOMPARE(capture.last().title, QStringLiteral("Warnung"));
    QCOMPARE(capture.last().text, QStringLiteral("Text"));
}

void tst_MessageBox::captureRestoresPreviousHandler()
{
    MessageCapture outer;
    {
        MessageCapture inner;
        MessageBox::critical(nullptr, QStringLiteral("a"), QStringLiteral("b"));
        QCOMPARE(inner.count(), 1);
    }
    MessageBox::information(nullptr, QStringLiteral("c"), QStringLiteral("d"));
    QCOMPARE(outer.count(), 1);
    QCOMPARE(outer.last().title, QStringLiteral("c"));
}

void tst_MessageBox::withoutHandlerTheModalBoxIsShown()
{
    // The real box is modal; close it from a timer the way a user would.
    QString seenTitle;
    QTimer::singleShot(0, this, [&seenTitle] {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *box = qobject_cast<QMessageBox *>(widget)) {
                seenTitle = box->windowTitle();
                box->button(QMessageBox::Ok)->click();
            }
        }
    });
    const auto answer = MessageBox::information(nullptr, QStringLiteral("Hinweis"), QStringLiteral("Text"));
    QCOMPARE(answer, QMessageBox::Ok);
    QCOMPARE(seenTitle, QStringLiteral("Hinweis"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

QTEST_MAIN(tst_MessageBox)
#include "tst_messagebox.moc"
