/// The controls that forms are made of.
#pragma once

#include "toolkit/control.h"

#include <optional>

namespace tandrel
{

/// How a text is set: its role gives font and colour, which the style sheet holds.
enum class TextRole { Plain, Quiet, Title, Time, Value, Caption, Group, Chip, Heading, Figure, Display };
enum class Alignment { Left, Centre, Right };
/// Where a text that is longer than its line gives way to "…".
enum class TextCut { None, Middle, End };

class Label : public Control
{
public:
    Label(Form& form, Text name, TwipsRect place, Text caption = {}, Control* container = nullptr);

    Text caption() const { return caption_; }
    void setCaption(Text caption);
    Property<Label, Text, &Label::caption, &Label::setCaption> Caption{*this};
    /// 0xRRGGBB; -1 is the colour of its role.
    Long foreColour() const { return foreColour_; }
    void setForeColour(Long colour);
    Property<Label, Long, &Label::foreColour, &Label::setForeColour> ForeColor{*this};

    /// How high it would have to be for this text, broken at this width. Twips; an estimate where nobody draws it.
    Long heightFor(const Text& text, Long width) const;

    TextRole role = TextRole::Plain;
    Alignment alignment = Alignment::Left;
    /// The label's width follows its text.
    bool autoSize = false;
    /// Long lines are broken at its width, and long words too.
    bool wordWrap = false;
    /// Of a text that is cut the tip has all. Set before the form is loaded.
    TextCut cut = TextCut::None;
    /// "&&" in the caption is one "&", and a single one marks a letter and is not seen.
    bool usesMnemonic = false;

private:
    Text caption_;
    Long foreColour_ = -1;
};

/// What an image that is a button lies on.
enum class Plate { None, Round, Play, Lead };

/// A picture that can be pressed. `picture` names a drawing of the skin.
class Image : public Control
{
public:
    Image(Form& form, Text name, TwipsRect place, Text picture = {}, Control* container = nullptr);

    Text picture() const { return picture_; }
    void setPicture(Text name);
    Property<Image, Text, &Image::picture, &Image::setPicture> Picture{*this};

    Plate plate = Plate::None;
    /// One without a plate is a little darker while the pointer is elsewhere.
    bool dimmedAtRest = true;
    /// Twips; the drawing has this width, and the image shows as much of it as fits. 0: it fills the image.
    Long pictureWidth;
    /// Tab comes here, and Space and Enter press it.
    bool tabStop = false;

private:
    Text picture_;
};

/// A box that may hold other controls, or a video in the native window of its own that it has.
class PictureBox : public Control
{
public:
    using Control::Control;
    /// A drawing of the skin that fills it. The box has no window then: the form shows through where the drawing is
    /// clear.
    Text picture;
    /// Filled with the dark of a video; otherwise with the colour of a frame.
    bool dark = false;
    /// Filled with this colour instead, red in the lowest byte.
    std::optional<Long> backColour;
};

/// What an image that is a button does on a left press and release: its border is 1 in between.
void showsPress(Image& image);

/// A button. Setting `Value` to true presses it at once, be it hidden or disabled.
class CommandButton : public Control
{
public:
    CommandButton(Form& form, Text name, TwipsRect place, Text caption = {}, Control* container = nullptr);

    Text caption() const { return caption_; }
    void setCaption(Text caption);
    Property<CommandButton, Text, &CommandButton::caption, &CommandButton::setCaption> Caption{*this};

    /// Enter presses it wherever the focus is in the form, and Escape.
    bool isDefault = false;
    bool isCancel = false;
    /// Drawn in small beside others of its kind.
    bool compact = false;

    bool value() const { return false; }
    void setValue(bool pressed);
    Property<CommandButton, bool, &CommandButton::value, &CommandButton::setValue> Value{*this};

private:
    Text caption_;
};

/// A box to tick. Setting another `Value` runs `Click`.
class CheckBox : public Control
{
public:
    CheckBox(Form& form, Text name, TwipsRect place, Text caption = {});

    Text caption() const { return caption_; }
    void setCaption(Text caption);
    Property<CheckBox, Text, &CheckBox::caption, &CheckBox::setCaption> Caption{*this};
    Integer value() const { return value_; }
    void setValue(Integer ticked);
    /// 0 or 1.
    Property<CheckBox, Integer, &CheckBox::value, &CheckBox::setValue> Value{*this};

    /// The user ticks or unticks it.
    void userClick() override;

private:
    Text caption_;
    Integer value_ = 0;
};

/// A slider. `Change` runs whenever `Value` takes another value; `Value` is held within `Min` and `Max`.
class Slider : public Control
{
public:
    Slider(Form& form, Text name, TwipsRect place, bool vertical, Control* container = nullptr);

    Long value() const { return value_; }
    void setValue(Long value);
    Long minimum() const { return minimum_; }
    void setMinimum(Long value);
    Long maximum() const { return maximum_; }
    void setMaximum(Long value);

    Property<Slider, Long, &Slider::value, &Slider::setValue> Value{*this};
    Property<Slider, Long, &Slider::minimum, &Slider::setMinimum> Min{*this};
    Property<Slider, Long, &Slider::maximum, &Slider::setMaximum> Max{*this};
    /// What a page up, page down or a click beside the thumb adds.
    Long LargeChange = 10;
    Long SmallChange = 1;
    bool vertical() const { return vertical_; }
    /// The focus comes to it, and keys move it. Set before the form is loaded.
    bool takesKeys = true;

    std::function<void()> Scroll;
    std::function<void()> Change;

    /// The thumb is at `value` by the user's hand: runs `Scroll`, and `Change` if the value is another one.
    void userScroll(Long value);
    /// A key, the wheel or a click beside the thumb: as a scroll, and then a click.
    void userStep(Long value);
    /// The thumb is let go: `MouseUp`, and then `Click`.
    void userMouseUp(const MouseEvent& event) override;

private:
    Long bounded(Long value) const;
    bool vertical_;
    Long minimum_ = 0;
    Long maximum_ = 100;
    Long value_ = 0;
};

/// A list of texts that drops down, one of them chosen.
class ComboBox : public Control
{
public:
    ComboBox(Form& form, Text name, TwipsRect place);

    void AddItem(Text entry);
    Long ListCount() const { return static_cast<std::int64_t>(entries_.size()); }
    Text List(Long index) const;
    const std::vector<Text>& entries() const { return entries_; }

    Long listIndex() const { return listIndex_; }
    /// An index outside the list raises run-time error 5; -1 chooses none. Another choice runs `Click`.
    void setListIndex(Long index);
    Property<ComboBox, Long, &ComboBox::listIndex, &ComboBox::setListIndex> ListIndex{*this};

    /// The list is down.
    bool isDropped() const { return dropped_; }
    void userDropped(bool down) { dropped_ = down; }

private:
    std::vector<Text> entries_;
    Long listIndex_ = -1;
    bool dropped_ = false;
};

/// How much of a whole is done.
class ProgressBar : public Control
{
public:
    ProgressBar(Form& form, Text name, TwipsRect place);

    Long value() const { return value_; }
    Long maximum() const { return maximum_; }
    /// `done` of `whole`; a whole below 1 shows an empty bar.
    void show(Long done, Long whole);
    /// A glint moves on along the bar, which shows that something goes on.
    void pulse();
    /// The number of pulses since the last change of what is done.
    Long pulses() const { return pulses_; }

private:
    Long value_ = 0;
    Long maximum_ = 0;
    Long pulses_ = 0;
};

/// An ordered list of texts, shown nowhere.
class ListBox
{
public:
    Long ListCount() const { return static_cast<std::int64_t>(entries_.size()); }
    void AddItem(Text entry) { entries_.push_back(std::move(entry)); }
    /// An index outside the list raises run-time error 5.
    void RemoveItem(Long index);
    Text List(Long index) const;
    void Clear() { entries_.clear(); }
    const std::vector<Text>& entries() const { return entries_; }

private:
    std::vector<Text> entries_;
};

} // namespace tandrel
