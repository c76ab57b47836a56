// SPDX-License-Identifier: GPL-3.0-or-later
// The window with instructions: its keys, and whether the whole text can be read.
#include "session/TextWindow.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"
#include "support/WindowWidgets.h"

#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

namespace {

/// A shown window, which deletes itself when it is closed.
struct ShownText {
    explicit ShownText(const QString& text)
        : window(new TextWindow(text, nullptr))
        , closed(window, &TextWindow::closed)
    {
        window->show();
    }
    ~ShownText() { delete window; }

    QScrollBar& bar() const
    {
        return *widgetOf<QTextEdit>(*window, "textEdit")->verticalScrollBar();
    }

    QPointer<TextWindow> window;
    QSignalSpy closed;
};

} // namespace

class TestTextWindow : public QuietTest {
    Q_OBJECT

private slots:
    void return_closesTheWindow_andNoOtherKeyDoes()
    {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            const ShownText text("Listen.");
            QTRY_VERIFY(text.window->isVisible());
            for (const int other : {int(Qt::Key_Space), int(Qt::Key_Escape), int(Qt::Key_2),
                     int(Qt::Key_Tab), int(Qt::Key_Down), int(Qt::Key_F4)})
                QTest::keyClick(text.window, Qt::Key(other));
            QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, "\r", true);
            QCoreApplication::sendEvent(text.window, &held);
            QVERIFY(text.window->isVisible());
            QCOMPARE(text.closed.count(), 0);
            QTest::keyPress(text.window, key);
            QCOMPARE(text.closed.count(), 1);
            QTRY_VERIFY(text.window.isNull());
        }
    }

    void closing_isTheSameAsReturn()
    {
        const ShownText text("Listen.");
        text.window->close();
        QCOMPARE(text.closed.count(), 1);
        QTRY_VERIFY(text.window.isNull());
    }

    void text_isPlain_andLarge()
    {
        const ShownText text("<b>Which one</b> is different?\nTell.");
        const auto* const shown = widgetOf<QTextEdit>(*text.window, "textEdit");
        QCOMPARE(shown->toPlainText(), QString("<b>Which one</b> is different?\nTell."));
        QCOMPARE(shown->font().pointSize(), 24);
        QCOMPARE(text.bar().maximum(), 0);
        QCOMPARE(text.window->windowModality(), Qt::ApplicationModal);
    }

    void longerText_isSmaller_andTheLongestScrolls()
    {
        const ShownText longer(QString("Listen well. ").repeated(70));
        const int points = widgetOf<QTextEdit>(*longer.window, "textEdit")->font().pointSize();
        QVERIFY2(points < 24 && points > 14, qPrintable(QString::number(points)));
        QCOMPARE(longer.bar().maximum(), 0);

        const ShownText longest(QString("Line\n").repeated(400));
        QCOMPARE(widgetOf<QTextEdit>(*longest.window, "textEdit")->font().pointSize(), 14);
        QVERIFY(longest.bar().maximum() > 0);
        QTest::keyClick(longest.window, Qt::Key_PageDown);
        const int page = longest.bar().value();
        QVERIFY(page > 0);
        QTest::keyClick(longest.window, Qt::Key_Down);
        // cppcheck-suppress knownConditionTrueFalse // the key has moved the bar
        QVERIFY(longest.bar().value() > page);
        QTest::keyClick(longest.window, Qt::Key_Up);
        QTest::keyClick(longest.window, Qt::Key_PageUp);
        QCOMPARE(longest.bar().value(), 0);
    }
};

QUORIN_TEST(TestTextWindow);
#include "tst_text_window.moc"
