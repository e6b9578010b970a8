#include <messagebox.h>

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QTimer>

class tst_MessageBox : public QObject
{
    Q_OBJECT
private slots:
    void passesTheMessageThrough();
};

// Without a capture (which every other test uses) the message reaches a
// modal box, answered here the way a user would. The other kinds' icons are
// checked through the capture where the editor shows them (a warning in
// tst_gridpointtable, a critical box in tst_editingcommands, an information
// in tst_camdesignerview).
void tst_MessageBox::passesTheMessageThrough()
{
    const QString title = QStringLiteral("Speichern der Datei Fehlgeschlagen.");
    const QString text = QString::fromUtf8("Überschreiben nicht möglich.");
    const QMessageBox::StandardButtons buttons = QMessageBox::Yes | QMessageBox::No;
    const QStringList expected { QString::number(QMessageBox::Question), title, text, QString::number(buttons) };
    QStringList seen;
    QTimer::singleShot(0, this, [&] {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *box = qobject_cast<QMessageBox *>(widget)) {
                seen << QString::number(box->icon()) << box->windowTitle() << box->text()
                     << QString::number(box->standardButtons());
                box->button(QMessageBox::No)->click();
            }
        }
    });
    QCOMPARE(MessageBox::question(nullptr, title, text, buttons), QMessageBox::No);
    QCOMPARE(seen, expected);
}

QTEST_MAIN(tst_MessageBox)
#include "tst_messagebox.moc"
