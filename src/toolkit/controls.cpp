#include "toolkit/controls.h"

#include "toolkit/screen.h"

#include <algorithm>

namespace tandrel
{

Label::Label(Form& form, Text name, TwipsRect place, Text caption, Control* container)
    : Control(form, std::move(name), place, container), caption_(std::move(caption))
{
}

void Label::setCaption(Text caption)
{
    if (caption == caption_)
        return;
    caption_ = std::move(caption);
    notify(Aspect::Caption);
}

Long Label::heightFor(const Text& text, Long width) const
{
    const std::optional<int> pixels = view() ? view()->textHeight(text, pixelsX(width)) : std::nullopt;
    if (pixels)
        return *pixels * screen().TwipsPerPixelY();
    constexpr int kLine = 240;
    constexpr int kCharacter = 110;
    Long lines = 0;
    for (const Text& line : split(text, '\n'))
        lines += 1 + characterCount(line) * kCharacter / std::max<Long>(1, width);
    return lines * kLine;
}

void Label::setForeColour(Long colour)
{
    if (colour == foreColour_)
        return;
    foreColour_ = colour;
    notify(Aspect::Colour);
}

Image::Image(Form& form, Text name, TwipsRect place, Text picture, Control* container)
    : Control(form, std::move(name), place, container), picture_(std::move(picture))
{
}

void showsPress(Image& image)
{
    image.MouseDown = [&image](const MouseEvent& event) {
        if (event.button == mouse::kLeft)
            image.BorderStyle = 1;
    };
    image.MouseUp = [&image](const MouseEvent& event) {
        if (event.button == mouse::kLeft)
            image.BorderStyle = 0;
    };
}

void Image::setPicture(Text name)
{
    picture_ = std::move(name);
    notify(Aspect::Picture);
}

CommandButton::CommandButton(Form& form, Text name, TwipsRect place, Text caption, Control* container)
    : Control(form, std::move(name), place, container), caption_(std::move(caption))
{
}

void CommandButton::setCaption(Text caption)
{
    caption_ = std::move(caption);
    notify(Aspect::Caption);
}

void CommandButton::setValue(bool pressed)
{
    if (pressed)
        run(Click);
}

CheckBox::CheckBox(Form& form, Text name, TwipsRect place, Text caption)
    : Control(form, std::move(name), place), caption_(std::move(caption))
{
}

void CheckBox::setCaption(Text caption)
{
    caption_ = std::move(caption);
    notify(Aspect::Caption);
}

void CheckBox::setValue(Integer ticked)
{
    if (ticked == value_)
        return;
    value_ = ticked;
    notify(Aspect::Value);
    run(Click);
}

void CheckBox::userClick() { setValue(value_ == 0 ? 1 : 0); }

Slider::Slider(Form& form, Text name, TwipsRect place, bool vertical, Control* container)
    : Control(form, std::move(name), place, container), vertical_(vertical)
{
}

Long Slider::bounded(Long value) const { return std::max(minimum_, std::min(value, maximum_)); }

void Slider::setValue(Long value)
{
    value = bounded(value);
    if (value == value_)
        return;
    value_ = value;
    notify(Aspect::Value);
    run(Change);
}

void Slider::setMinimum(Long value)
{
    if (value == minimum_)
        return;
    minimum_ = value;
    notify(Aspect::Value);
    setValue(value_);
}

void Slider::setMaximum(Long value)
{
    if (value == maximum_)
        return;
    maximum_ = value;
    notify(Aspect::Value);
    setValue(value_);
}

void Slider::userScroll(Long value)
{
    setValue(value);
    run(Scroll);
}

void Slider::userStep(Long value)
{
    userScroll(value);
    run(Click);
}

void Slider::userMouseUp(const MouseEvent& event)
{
    Control::userMouseUp(event);
    if (event.button == mouse::kLeft)
        run(Click);
}

ComboBox::ComboBox(Form& form, Text name, TwipsRect place) : Control(form, std::move(name), place) {}

void ComboBox::AddItem(Text entry)
{
    entries_.push_back(std::move(entry));
    notify(Aspect::Caption);
}

Text ComboBox::List(Long index) const
{
    return index < 0 || index >= ListCount() ? Text() : entries_[static_cast<std::size_t>(index)];
}

void ComboBox::setListIndex(Long index)
{
    if (index < -1 || index >= ListCount())
        throw RuntimeError(error::kInvalidCall, "Invalid procedure call or argument");
    if (index == listIndex_)
        return;
    listIndex_ = index;
    notify(Aspect::Value);
    run(Click);
}

ProgressBar::ProgressBar(Form& form, Text name, TwipsRect place) : Control(form, std::move(name), place) {}

void ProgressBar::show(Long done, Long whole)
{
    maximum_ = std::max<Long>(whole, 0);
    value_ = std::max<Long>(0, std::min<Long>(done, maximum_));
    pulses_ = 0;
    notify(Aspect::Value);
}

void ProgressBar::pulse()
{
    pulses_ += 1;
    notify(Aspect::Repaint);
}

void ListBox::RemoveItem(Long index)
{
    if (index < 0 || index >= ListCount())
        throw RuntimeError(error::kInvalidCall, "Invalid procedure call or argument");
    entries_.erase(entries_.begin() + index);
}

Text ListBox::List(Long index) const
{
    return index < 0 || index >= ListCount() ? Text() : entries_[static_cast<std::size_t>(index)];
}

} // namespace tandrel
