#include "codec_settings/settings_page.h"

#include "codec_settings/segmented_choice.h"
#include "codec_settings/tuning_slider.h"

#include <QGridLayout>
#include <QLabel>

#include <cstdlib>

namespace tandrel
{

namespace
{
constexpr int kLabelWidth = 146;
constexpr int kNumberWidth = 64;
constexpr int kRowGap = 9;
constexpr int kBandHeight = 118;

constexpr const char* kBandNames[]{"31", "62", "125", "250", "500", "1k", "2k", "4k", "8k", "16k"};

QString nameOf(CodecValue value)
{
    const auto name = ruleOf(value).name;
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

QLabel* makeLabel(const QString& text, const char* role, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setProperty("role", role);
    return label;
}
} // namespace

const SettingsPage::SliderRow SettingsPage::kPictureSliders[]{
    {CodecValue::Brightness, "codec.brightness", Unit::Signed}, {CodecValue::Contrast, "codec.contrast", Unit::Signed},
    {CodecValue::Saturation, "codec.saturation", Unit::Signed}, {CodecValue::Hue, "codec.hue", Unit::Degrees},
    {CodecValue::Gamma, "codec.gamma", Unit::Hundredths},       {CodecValue::Sharpen, "codec.sharpen", Unit::Amount},
    {CodecValue::Denoise, "codec.denoise", Unit::Amount},
};
const SettingsPage::SliderRow SettingsPage::kSoundSliders[]{
    {CodecValue::Delay, "codec.delay", Unit::Milliseconds},
    {CodecValue::Speed, "codec.speed", Unit::Percent},
};
const SettingsPage::ChoiceRow SettingsPage::kPictureChoices[]{
    {CodecValue::Deinterlace, "codec.deinterlace", {"codec.off", "codec.automatic", "codec.always"}},
    {CodecValue::PostProcessing, "codec.postProcessing", {"codec.off", "codec.light", "codec.strong"}},
    {CodecValue::HardwareDecoding, "codec.hardwareDecoding", {"codec.off", "codec.automatic"}},
};
const SettingsPage::ChoiceRow SettingsPage::kSoundChoices[]{
    {CodecValue::Normalise, "codec.normalise", {"codec.off", "codec.light", "codec.strong"}},
    {CodecValue::Channels,
     "codec.channels",
     {"codec.asInFile", "codec.stereo", "codec.mono", "codec.left", "codec.right"}},
};

SettingsPage::SettingsPage(Kind kind, const CodecTexts& texts, Changed changed, QWidget* parent)
    : QWidget(parent), texts_(texts), changed_(std::move(changed))
{
    const bool picture = kind == Kind::Picture;
    setObjectName(picture ? QStringLiteral("picture") : QStringLiteral("sound"));
    setAccessibleName(texts_(picture ? "codec.picture" : "codec.sound"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 14, 16, 14);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(kRowGap);
    grid->setColumnMinimumWidth(0, kLabelWidth);
    grid->setColumnStretch(1, 1);
    if (picture) {
        for (const SliderRow& row : kPictureSliders)
            addSlider(*grid, row);
        for (const ChoiceRow& row : kPictureChoices)
            addChoice(*grid, row);
    } else {
        grid->addWidget(makeEqualiser(), 0, 0, 1, 3);
        for (const SliderRow& row : kSoundSliders)
            addSlider(*grid, row);
        for (const ChoiceRow& row : kSoundChoices)
            addChoice(*grid, row);
    }
    grid->setRowStretch(grid->rowCount(), 1);
}

void SettingsPage::show(const CodecSettings& settings)
{
    for (const auto& one : shows_)
        one(settings);
}

QString SettingsPage::written(int number, Unit unit)
{
    const QString plain = (number < 0 ? QStringLiteral("\u2212") : QString()) + QString::number(std::abs(number));
    const QString sign = number > 0 ? QStringLiteral("+") : QString();
    switch (unit) {
    case Unit::Signed:
        return sign + plain;
    case Unit::Degrees:
        return sign + plain + QStringLiteral("°");
    case Unit::Hundredths:
        return QString::number(number / 100.0, 'f', 2);
    case Unit::Decibels:
        return sign + plain;
    case Unit::Milliseconds:
        return sign + plain + QStringLiteral(" ms");
    case Unit::Percent:
        return plain + QStringLiteral(" %");
    case Unit::Amount:
        break;
    }
    return plain;
}

TuningSlider* SettingsPage::makeSlider(Qt::Orientation orientation, CodecValue value, const QString& name, Unit unit,
                                       QLabel& number)
{
    const CodecRule& rule = ruleOf(value);
    auto* slider = new TuningSlider(orientation, rule.lowest, rule.highest, rule.standard, this);
    slider->setObjectName(nameOf(value));
    slider->setAccessibleName(name);
    number.setObjectName(nameOf(value) + QStringLiteral(".value"));
    number.setAccessibleDescription(name);
    number.setText(written(rule.standard, unit));
    if (unit == Unit::Milliseconds)
        slider->setSingleStep(10);
    QObject::connect(slider, &QSlider::valueChanged, this, [this, value, unit, &number](int now) {
        number.setText(written(now, unit));
        changed_(value, now);
    });
    shows_.emplace_back([slider, value](const CodecSettings& settings) { slider->setValue(settings.get(value)); });
    return slider;
}

void SettingsPage::addSlider(QGridLayout& grid, const SliderRow& row)
{
    const int line = grid.rowCount();
    auto* number = makeLabel({}, "number", this);
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    number->setFixedWidth(kNumberWidth);
    grid.addWidget(makeLabel(texts_(row.key), "row", this), line, 0);
    grid.addWidget(makeSlider(Qt::Horizontal, row.value, texts_(row.key), row.unit, *number), line, 1);
    grid.addWidget(number, line, 2);
}

void SettingsPage::addChoice(QGridLayout& grid, const ChoiceRow& row)
{
    const int line = grid.rowCount();
    QStringList options;
    for (const char* key : row.options)
        options << texts_(key);
    auto* choice = new SegmentedChoice(nameOf(row.value), texts_(row.key), options, this);
    choice->setValue(ruleOf(row.value).standard);
    QObject::connect(&choice->group(), &QButtonGroup::idToggled, this, [this, value = row.value](int id, bool on) {
        if (on)
            changed_(value, id);
    });
    shows_.emplace_back(
        [choice, value = row.value](const CodecSettings& settings) { choice->setValue(settings.get(value)); });
    grid.addWidget(makeLabel(texts_(row.key), "row", this), line, 0);
    grid.addWidget(choice, line, 1, 1, 2);
}

QWidget* SettingsPage::makeEqualiser()
{
    auto* box = new QWidget(this);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 4);
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(0);
    grid->addWidget(makeLabel(texts_("codec.equaliser") + QStringLiteral(" (dB)"), "row", box), 0, 0, 1,
                    kEqualiserBands);
    for (int index = 0; index < kEqualiserBands; ++index) {
        const QString band = QString::fromLatin1(kBandNames[index]);
        auto* number = makeLabel({}, "number", box);
        number->setAlignment(Qt::AlignCenter);
        auto* slider = makeSlider(Qt::Vertical, equaliserBand(index),
                                  texts_("codec.equaliser") + QStringLiteral(": ") + band + QStringLiteral(" Hz"),
                                  Unit::Decibels, *number);
        slider->setFixedHeight(kBandHeight);
        auto* name = makeLabel(band, "quiet", box);
        name->setAlignment(Qt::AlignCenter);
        grid->addWidget(number, 1, index);
        grid->addWidget(slider, 2, index, Qt::AlignHCenter);
        grid->addWidget(name, 3, index);
        grid->setColumnStretch(index, 1);
    }
    return box;
}

} // namespace tandrel
