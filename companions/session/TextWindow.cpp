// SPDX-License-Identifier: GPL-3.0-or-later
// A plain window with instructions or the text of a break.
#include "session/TextWindow.h"

#include "app/WindowParts.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {

constexpr int largestPoints = 24;
constexpr int smallestPoints = 14;
constexpr double screenFraction = 0.8;

void setPoints(QWidget& widget, int points)
{
    QFont font = widget.font();
    font.setPointSize(points);
    widget.setFont(font);
}

QAbstractSlider::SliderAction scrolling(int key)
{
    switch (key) {
    case Qt::Key_Up:
        return QAbstractSlider::SliderSingleStepSub;
    case Qt::Key_Down:
        return QAbstractSlider::SliderSingleStepAdd;
    case Qt::Key_PageUp:
        return QAbstractSlider::SliderPageStepSub;
    case Qt::Key_PageDown:
        return QAbstractSlider::SliderPageStepAdd;
    default:
        return QAbstractSlider::SliderNoAction;
    }
}

} // namespace

TextWindow::TextWindow(const QString& text, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_text(new QTextEdit)
{
    auto* const hint = named(new QLabel("Press Return to go on"), "labelHint");
    setObjectName("textWindow");
    m_text->setObjectName("textEdit");
    m_text->setPlainText(text);
    m_text->setReadOnly(true);
    m_text->setTextInteractionFlags(Qt::NoTextInteraction);
    m_text->setFocusPolicy(Qt::NoFocus);
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    hint->setAlignment(Qt::AlignRight);
    setPoints(*hint, smallestPoints);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addWidget(hint);
    setWindowTitle("Quorin Lab");
    setWindowModality(Qt::ApplicationModal);
    setAttribute(Qt::WA_DeleteOnClose);
    setGeometry(windowRectangle(availableScreenSize(), {}, true, screenFraction, screenFraction));
}

void TextWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && !event->isAutoRepeat()) {
        close();
    } else {
        m_text->verticalScrollBar()->triggerAction(scrolling(event->key()));
    }
}

// The text learns its width when it is shown first.
void TextWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    fitText();
}

void TextWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layout()->activate();
    fitText();
}

void TextWindow::fitText()
{
    for (int points = largestPoints; points >= smallestPoints; --points) {
        setPoints(*m_text, points);
        if (m_text->document()->size().height() <= m_text->viewport()->height()) {
            return;
        }
    }
}

void TextWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    emit closed();
}
