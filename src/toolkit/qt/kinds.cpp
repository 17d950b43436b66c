#include "toolkit/qt/kinds.h"

#include "toolkit/qt/accessible_control.h"
#include "toolkit/qt/drawings.h"
#include "toolkit/qt/form_widget.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/palette.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>

namespace tandrel
{

namespace
{

class BoxWidget : public QWidget
{
public:
    BoxWidget(const PictureBox& box, QWidget* parent) : QWidget(parent), box_(box)
    {
        setAttribute(Qt::WA_NativeWindow, box.picture.empty());
        setAttribute(Qt::WA_OpaquePaintEvent, box.picture.empty());
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        if (box_.picture.empty())
            painter.fillRect(rect(), ground());
        else
            painter.drawPixmap(0, 0, drawing(QString::fromStdString(box_.picture), size(), devicePixelRatioF()));
    }

private:
    QColor ground() const
    {
        if (!box_.backColour)
            return box_.dark ? palette::kVideoGround : palette::kBandTop;
        const std::int32_t colour = *box_.backColour;
        return {colour & 0xff, colour >> 8 & 0xff, colour >> 16 & 0xff};
    }

    const PictureBox& box_;
};

/// Buttons and boxes are pressed by Enter as well as by Space.
class PressedByEnter : public WidgetView
{
public:
    PressedByEnter(Control& control, FormWidget& window, QWidget* widget) : WidgetView(control, window, widget)
    {
        // Who works with the mouse is not bothered by the ring of the focus: as on images, a click leaves the keys
        // where they are.
        widget->setFocusPolicy(Qt::TabFocus);
    }

protected:
    bool widgetNeedsMouse() const override { return true; }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                control_.userClick();
                return true;
            }
        }
        return WidgetView::eventFilter(watched, event);
    }
};

class ButtonView : public PressedByEnter
{
public:
    ButtonView(CommandButton& button, FormWidget& window, QPushButton* widget)
        : PressedByEnter(button, window, widget), button_(button), widget_(widget)
    {
        ButtonView::show(Aspect::Caption);
        connect(widget, &QPushButton::clicked, this, [this, widget] {
            // Assistive technology presses Qt's own button, wherever that is.
            if (isInReach(*widget))
                button_.userClick();
        });
    }

protected:
    void show(Aspect) override { widget_->setText(rendered(button_.caption())); }

private:
    CommandButton& button_;
    QPushButton* widget_;
};

class CheckBoxView : public PressedByEnter
{
public:
    CheckBoxView(CheckBox& box, FormWidget& window, QCheckBox* widget)
        : PressedByEnter(box, window, widget), box_(box), widget_(widget)
    {
        CheckBoxView::show(Aspect::Value);
        connect(widget, &QCheckBox::clicked, this, [this] { box_.userClick(); });
    }

protected:
    void show(Aspect) override
    {
        widget_->setText(rendered(box_.caption()));
        widget_->setChecked(box_.value() != 0);
    }

private:
    CheckBox& box_;
    QCheckBox* widget_;
};

/// Tells its control when the list is down.
class ComboWidget : public QComboBox
{
public:
    ComboWidget(ComboBox& box, QWidget* parent) : QComboBox(parent), box_(box) {}
    void showPopup() override
    {
        box_.userDropped(true);
        QComboBox::showPopup();
    }
    void hidePopup() override
    {
        box_.userDropped(false);
        QComboBox::hidePopup();
    }

private:
    ComboBox& box_;
};

class ComboView : public WidgetView
{
public:
    ComboView(ComboBox& box, FormWidget& window, ComboWidget* widget)
        : WidgetView(box, window, widget), box_(box), widget_(widget)
    {
        ComboView::show(Aspect::Caption);
        connect(widget, &QComboBox::activated, this, [this](int index) { box_.ListIndex = index; });
    }

protected:
    void show(Aspect aspect) override
    {
        if (aspect == Aspect::Caption) {
            widget_->clear();
            for (const Text& entry : box_.entries())
                widget_->addItem(rendered(entry));
        }
        widget_->setCurrentIndex(box_.listIndex());
    }
    bool widgetNeedsMouse() const override { return true; }

private:
    ComboBox& box_;
    ComboWidget* widget_;
};

/// A bar with a glint that moves along it from pulse to pulse.
class GlintBar : public QProgressBar
{
public:
    using QProgressBar::QProgressBar;
    void showPulse(int pulse)
    {
        pulse_ = pulse;
        update();
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QProgressBar::paintEvent(event);
        if (pulse_ == 0)
            return;
        constexpr int kPulsesAlong = 12;
        constexpr double kGlintShare = 0.25;
        const double glint = width() * kGlintShare;
        const double left = (pulse_ - 1) % kPulsesAlong * (width() + glint) / (kPulsesAlong - 1) - glint;
        QLinearGradient light(left, 0, left + glint, 0);
        light.setColorAt(0, Qt::transparent);
        light.setColorAt(0.5, palette::kText);
        light.setColorAt(1, Qt::transparent);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(light);
        painter.setClipRect(QRectF(left, 0, glint, height()));
        painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);
    }

private:
    int pulse_ = 0;
};

class ProgressView : public WidgetView
{
public:
    ProgressView(ProgressBar& bar, FormWidget& window, GlintBar* widget)
        : WidgetView(bar, window, widget), bar_(bar), widget_(widget)
    {
        widget->setTextVisible(false);
        ProgressView::show(Aspect::Value);
    }

protected:
    void show(Aspect) override
    {
        widget_->setRange(0, std::max<int>(1, bar_.maximum()));
        widget_->setValue(bar_.value());
        widget_->showPulse(bar_.pulses());
    }

private:
    ProgressBar& bar_;
    GlintBar* widget_;
};

} // namespace

bool clickFollowsRelease(const Control& control)
{
    return dynamic_cast<const Label*>(&control) || dynamic_cast<const Image*>(&control) ||
           dynamic_cast<const PictureBox*>(&control);
}

namespace
{

std::unique_ptr<ControlView> makeButtonView(CommandButton& button, FormWidget& window, QWidget* parent)
{
    auto* widget = new QPushButton(parent);
    widget->setProperty("compact", button.compact);
    return std::make_unique<ButtonView>(button, window, widget);
}

} // namespace

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
        return std::make_unique<WidgetView>(*box, window, new BoxWidget(*box, parent));
    if (auto* button = dynamic_cast<CommandButton*>(&control))
        return makeButtonView(*button, window, parent);
    if (auto* box = dynamic_cast<CheckBox*>(&control))
        return std::make_unique<CheckBoxView>(*box, window, new QCheckBox(parent));
    if (auto* box = dynamic_cast<ComboBox*>(&control))
        return std::make_unique<ComboView>(*box, window, new ComboWidget(*box, parent));
    if (auto* bar = dynamic_cast<ProgressBar*>(&control))
        return std::make_unique<ProgressView>(*bar, window, new GlintBar(parent));
    if (auto* list = dynamic_cast<FileListBox*>(&control))
        return makeFileListBoxView(*list, window, parent);
    if (auto* box = dynamic_cast<GroupBox*>(&control))
        return makeGroupBoxView(*box, window, parent);
    return makeSliderView(dynamic_cast<Slider&>(control), window, parent);
}

} // namespace tandrel
