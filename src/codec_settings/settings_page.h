/// The controls of one kind of settings, on a panel.
#pragma once

#include "codec_settings/texts.h"
#include "platform/codec/codec_settings.h"

#include <QWidget>

#include <functional>
#include <vector>

class QGridLayout;
class QLabel;

namespace tandrel
{

class TuningSlider;

/// Each control has the value's name in the file as its object name; the text beside it has ".value" behind that.
class SettingsPage : public QWidget
{
public:
    /// Called with each value that the user changes.
    using Changed = std::function<void(CodecValue, int)>;

    enum class Kind { Picture, Sound };

    SettingsPage(Kind kind, const CodecTexts& texts, Changed changed, QWidget* parent);

    void show(const CodecSettings& settings);
    using QWidget::show;

private:
    /// How a number is written.
    enum class Unit { Signed, Amount, Degrees, Hundredths, Decibels, Milliseconds, Percent };
    struct SliderRow {
        CodecValue value;
        const char* key;
        Unit unit;
    };
    struct ChoiceRow {
        CodecValue value;
        const char* key;
        std::vector<const char*> options;
    };
    static const SliderRow kPictureSliders[];
    static const SliderRow kSoundSliders[];
    static const ChoiceRow kPictureChoices[];
    static const ChoiceRow kSoundChoices[];

    static QString written(int number, Unit unit);
    void addSlider(QGridLayout& grid, const SliderRow& row);
    void addChoice(QGridLayout& grid, const ChoiceRow& row);
    QWidget* makeEqualiser();
    TuningSlider* makeSlider(Qt::Orientation orientation, CodecValue value, const QString& name, Unit unit,
                             QLabel& number);

    const CodecTexts& texts_;
    const Changed changed_;
    /// Each puts a value of the settings into its control.
    std::vector<std::function<void(const CodecSettings&)>> shows_;
};

} // namespace tandrel
