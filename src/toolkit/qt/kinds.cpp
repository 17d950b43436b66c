#include "toolkit/qt/kinds.h"

#include "toolkit/qt/form_widget.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/palette.h"
#include "toolkit/screen.h"

#include <QCheckBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSvgRenderer>

namespace tandrel
{

namespace
{

constexpr std::array<const char*, 6> kRoleNames{"plain", "quiet", "title", "time", "value", "caption"};

class LabelView : public WidgetView
{
public:
    LabelView(Label& label, FormWidget& window, QLabel* widget)
        : WidgetView(label, window, widget), label_(label), text_(widget)
    {
        text_->setTextFormat(Qt::PlainText);
        text_->setWordWrap(label.wordWrap);
        text_->setAlignment(Qt::AlignVCenter | horizontal());
        if (!label.MouseDown && !label.MouseMove && !label.Click)
            text_->setAttribute(Qt::WA_TransparentForMouseEvents);
        LabelView::show(Aspect::Caption);
    }

protected:
    void show(Aspect aspect) override
    {
        if (aspect != Aspect::Caption)
            return WidgetView::show(aspect);
        text_->setText(rendered(label_.caption()));
        if (label_.autoSize)
            label_.setWidth(text_->sizeHint().width() * screen().TwipsPerPixelX());
    }

private:
    Qt::Alignment horizontal() const
    {
        if (label_.alignment == Alignment::Centre)
            return Qt::AlignHCenter;
        return label_.alignment == Alignment::Right ? Qt::AlignRight : Qt::AlignLeft;
    }

    Label& label_;
    QLabel* text_;
};

/// Paints a drawing of the skin, lifted while the pointer is over it and sunk while it is pressed.
class ImageWidget : public QWidget
{
public:
    ImageWidget(const Image& image, QWidget* parent) : QWidget(parent), image_(image)
    {
        setAttribute(Qt::WA_Hover);
        reload();
    }
    void reload() { drawing_.load(QStringLiteral(":/skin/%1.svg").arg(QString::fromStdString(image_.picture()))); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (!isEnabled())
            painter.setOpacity(0.35);
        else if (!underMouse())
            painter.setOpacity(0.82);
        QRectF area(rect());
        if (image_.borderStyle() == 1) {
            painter.translate(0, 1);
            painter.setPen(palette::kMoves);
            painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -1.5), 3, 3);
        }
        drawing_.render(&painter, area);
    }

private:
    const Image& image_;
    QSvgRenderer drawing_;
};

class ImageView : public WidgetView
{
public:
    ImageView(Image& image, FormWidget& window, ImageWidget* widget)
        : WidgetView(image, window, widget), picture_(widget)
    {
    }

protected:
    void show(Aspect aspect) override
    {
        if (aspect == Aspect::Picture)
            picture_->reload();
        WidgetView::show(aspect);
    }

private:
    ImageWidget* picture_;
};

class BoxWidget : public QWidget
{
public:
    BoxWidget(const PictureBox& box, QWidget* parent) : QWidget(parent), dark_(box.dark)
    {
        setAttribute(Qt::WA_NativeWindow);
        setAttribute(Qt::WA_OpaquePaintEvent);
        if (box.pointerShape == pointer::kSizeDiagonal)
            setCursor(Qt::SizeFDiagCursor);
        else if (box.pointerShape == pointer::kSizeVertical)
            setCursor(Qt::SizeVerCursor);
        else if (box.pointerShape == pointer::kSizeHorizontal)
            setCursor(Qt::SizeHorCursor);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter(this).fillRect(rect(), dark_ ? palette::kVideoGround : palette::kBandTop);
    }

private:
    bool dark_;
};

class ButtonView : public WidgetView
{
public:
    ButtonView(CommandButton& button, FormWidget& window, QPushButton* widget)
        : WidgetView(button, window, widget), button_(button), widget_(widget)
    {
        ButtonView::show(Aspect::Caption);
        connect(widget, &QPushButton::clicked, this, [this] { button_.userClick(); });
    }

protected:
    void show(Aspect) override { widget_->setText(QString::fromStdString(button_.caption())); }
    bool widgetNeedsMouse() const override { return true; }

private:
    CommandButton& button_;
    QPushButton* widget_;
};

class CheckBoxView : public WidgetView
{
public:
    CheckBoxView(CheckBox& box, FormWidget& window, QCheckBox* widget)
        : WidgetView(box, window, widget), box_(box), widget_(widget)
    {
        widget->setText(QString::fromStdString(box.caption()));
        CheckBoxView::show(Aspect::Value);
        connect(widget, &QCheckBox::clicked, this, [this] { box_.userClick(); });
    }

protected:
    void show(Aspect) override { widget_->setChecked(box_.value() != 0); }
    bool widgetNeedsMouse() const override { return true; }

private:
    CheckBox& box_;
    QCheckBox* widget_;
};

} // namespace

bool clickFollowsRelease(const Control& control)
{
    return dynamic_cast<const Label*>(&control) || dynamic_cast<const Image*>(&control) ||
           dynamic_cast<const PictureBox*>(&control);
}

std::unique_ptr<ControlView> makeLabelView(Label& label, FormWidget& window, QWidget* parent)
{
    auto* widget = new QLabel(parent);
    // The style looks at the role when the widget is first made visible, so it is set before anything else.
    widget->setProperty("role", QString::fromLatin1(kRoleNames[static_cast<std::size_t>(label.role)]));
    return std::make_unique<LabelView>(label, window, widget);
}

std::unique_ptr<ControlView> makeImageView(Image& image, FormWidget& window, QWidget* parent)
{
    return std::make_unique<ImageView>(image, window, new ImageWidget(image, parent));
}

std::unique_ptr<ControlView> makePictureBoxView(PictureBox& box, FormWidget& window, QWidget* parent)
{
    return std::make_unique<WidgetView>(box, window, new BoxWidget(box, parent));
}

std::unique_ptr<ControlView> makeButtonView(CommandButton& button, FormWidget& window, QWidget* parent)
{
    return std::make_unique<ButtonView>(button, window, new QPushButton(parent));
}

std::unique_ptr<ControlView> makeCheckBoxView(CheckBox& box, FormWidget& window, QWidget* parent)
{
    return std::make_unique<CheckBoxView>(box, window, new QCheckBox(parent));
}

std::unique_ptr<ControlView> makeControlView(Control& control, FormWidget& window)
{
    QWidget* parent = &window;
    if (control.container())
        parent = window.findChild<QWidget*>(QString::fromStdString(control.container()->name()));
    if (auto* label = dynamic_cast<Label*>(&control))
        return makeLabelView(*label, window, parent);
    if (auto* image = dynamic_cast<Image*>(&control))
        return makeImageView(*image, window, parent);
    if (auto* box = dynamic_cast<PictureBox*>(&control))
        return makePictureBoxView(*box, window, parent);
    if (auto* button = dynamic_cast<CommandButton*>(&control))
        return makeButtonView(*button, window, parent);
    if (auto* box = dynamic_cast<CheckBox*>(&control))
        return makeCheckBoxView(*box, window, parent);
    return makeSliderView(dynamic_cast<Slider&>(control), window, parent);
}

} // namespace tandrel
