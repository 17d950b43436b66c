#include "toolkit/qt/message_box.h"

#include "toolkit/qt/drawings.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/style.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>

namespace tandrel
{

namespace
{

constexpr int kIcon = 40;
constexpr int kBoxMargin = 12;

const char* iconOf(BoxStyle style)
{
    switch (style) {
    case BoxStyle::Critical:
        return "box_stop";
    case BoxStyle::YesNoQuestion:
        return "box_question";
    case BoxStyle::Exclamation:
        return "box_warning";
    case BoxStyle::Information:
        break;
    }
    return "box_information";
}

} // namespace

MessageBox::MessageBox(const QString& text, BoxStyle style, const QString& title, const BoxTexts& texts)
    : question_(style == BoxStyle::YesNoQuestion)
{
    setObjectName(QStringLiteral("messageBox"));
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowTitle(title);
    setTextFormat(Qt::PlainText);
    setText(text);
    const int icon = scaledPixels(kIcon);
    setIconPixmap(drawing(QString::fromLatin1(iconOf(style)), {icon, icon}, devicePixelRatioF()));
    setContentsMargins(kBoxMargin, kCaptionBand + kBoxMargin, kBoxMargin, kBoxMargin);
    if (style == BoxStyle::YesNoQuestion) {
        setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        button(QMessageBox::Yes)->setText(rendered(texts.yes));
        button(QMessageBox::No)->setText(rendered(texts.no));
    } else {
        setStandardButtons(QMessageBox::Ok);
        button(QMessageBox::Ok)->setText(rendered(texts.ok));
    }
    for (QAbstractButton* one : buttons())
        one->setIcon({});
}

void MessageBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintDialog(painter, windowTitle(), rect());
}

void MessageBox::resizeEvent(QResizeEvent* event)
{
    QMessageBox::resizeEvent(event);
    setMask(roundedRegion(rect()));
}

void MessageBox::keyPressEvent(QKeyEvent* event)
{
    if (question_ && event->key() == Qt::Key_Escape)
        return event->accept();
    QMessageBox::keyPressEvent(event);
}

void MessageBox::closeEvent(QCloseEvent* event)
{
    if (question_)
        return event->ignore();
    QMessageBox::closeEvent(event);
}

void MessageBox::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && event->position().y() < kCaptionBand)
        drag_ = event->globalPosition().toPoint() - pos();
}

void MessageBox::mouseMoveEvent(QMouseEvent* event)
{
    if (drag_)
        move(event->globalPosition().toPoint() - *drag_);
}

void MessageBox::mouseReleaseEvent(QMouseEvent*) { drag_.reset(); }

} // namespace tandrel
