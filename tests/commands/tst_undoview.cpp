#include "camdesigner/controller.h"
#include "commands/undoview.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QUndoView>

class tst_UndoView : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void popUpStaysWhileTheFocusIsInside();
};

void tst_UndoView::cleanup()
{
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_UndoView::popUpStaysWhileTheFocusIsInside()
{
    Controller stack;
    // A command of only a text; the base class does nothing on undo and redo.
    stack.push(new QUndoCommand(QStringLiteral("Ändere Bewegungsgesetz von Polynom fünften Grades -> Kubischer Spline")));
    UndoView view(&stack);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.activateWindow();
    QTRY_VERIFY(view.hasFocus());

    // Clicking an entry moves the focus into the list: the pop-up stays.
    view.undoList()->setFocus();
    QTRY_VERIFY(view.undoList()->hasFocus());
    QVERIFY(view.isVisible());

    QLineEdit elsewhere;
    elsewhere.show();
    QVERIFY(QTest::qWaitForWindowExposed(&elsewhere));
    elsewhere.activateWindow();
    elsewhere.setFocus();
    // The window's action unchecks on the hide (tst_camdesignerview).
    QTRY_VERIFY(!view.isVisible());
}

QTEST_MAIN(tst_UndoView)
#include "tst_undoview.moc"
