// The dialog for pictures and sounds, worked by its controls' names.

#include "temporary_folder.h"

#include "codec_settings/settings_window.h"
#include "codec_settings/tuning_slider.h"
#include "toolkit/qt/style.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>

#include <gmock/gmock.h>

#include <set>

namespace tandrel::test
{

namespace
{

using Value = CodecValue;

constexpr CodecPages kAllPages[]{CodecPages::Picture, CodecPages::Sound, CodecPages::Both};

bool isOn(CodecPages pages, Value value)
{
    return pages == CodecPages::Both || (ruleOf(value).section == "picture") == (pages == CodecPages::Picture);
}

class CodecWindow : public ::testing::Test
{
protected:
    CodecWindow() { applyStyle(*qApp); }

    void start(CodecPages pages, std::string_view language = "EN")
    {
        window = std::make_unique<SettingsWindow>(pages, file, language);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }
    template <class Widget>
    Widget* find(const QString& name) const
    {
        auto* found = window->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    void click(const char* name) { QTest::mouseClick(find<QPushButton>(QString::fromLatin1(name)), Qt::LeftButton); }
    static QString nameOf(Value value) { return QString::fromStdString(std::string(ruleOf(value).name)); }
    static bool isSlider(Value value) { return ruleOf(value).highest - ruleOf(value).lowest > 4; }

    /// Changes a control as a user does: to another value than the standard, which is returned.
    int change(Value value)
    {
        const CodecRule& rule = ruleOf(value);
        if (!isSlider(value)) {
            const int other = rule.standard == rule.lowest ? rule.highest : rule.lowest;
            QTest::mouseClick(find<QPushButton>(nameOf(value) + "." + QString::number(other)), Qt::LeftButton);
            return other;
        }
        auto* slider = find<TuningSlider>(nameOf(value));
        slider->setFocus();
        QTest::keyClick(slider, Qt::Key_End);
        EXPECT_EQ(slider->value(), rule.highest) << rule.name;
        QTest::keyClick(slider, Qt::Key_Left);
        return slider->value();
    }
    void turnTo(Value value)
    {
        if (window->findChild<QStackedWidget*>() != nullptr)
            QTest::mouseClick(find<QPushButton>(ruleOf(value).section == "picture" ? "pages.0" : "pages.1"),
                              Qt::LeftButton);
    }
    CodecSettings stored() { return CodecFile(folder.path("codec.ini")).read(); }
    QString status() const { return find<QLabel>("status")->text(); }

    TemporaryFolder folder;
    CodecFile file{folder.path("codec.ini")};
    std::unique_ptr<SettingsWindow> window;
};

} // namespace

TEST_F(CodecWindow, EachControlChangesTheValueThatApplyStores)
{
    for (const CodecPages pages : kAllPages) {
        std::filesystem::remove(folder.path("codec.ini"));
        start(pages);
        CodecSettings expected;
        for (std::size_t index = 0; index < kCodecValues; ++index) {
            const auto value = static_cast<Value>(index);
            if (!isOn(pages, value))
                continue;
            turnTo(value);
            expected.set(value, change(value));
            EXPECT_FALSE(expected.isStandard(value)) << ruleOf(value).name;
        }
        EXPECT_EQ(stored(), CodecSettings());
        click("apply");
        EXPECT_EQ(stored(), expected);
        EXPECT_TRUE(status().startsWith("Stored"));
    }
}

TEST_F(CodecWindow, StoredValuesAreShownAndDefaultsTakeThemBack)
{
    CodecSettings settings;
    for (std::size_t index = 0; index < kCodecValues; ++index)
        settings.set(static_cast<Value>(index), kCodecRules[index].lowest);
    ASSERT_TRUE(file.write(settings));
    start(CodecPages::Both);
    EXPECT_EQ(find<TuningSlider>("brightness")->value(), -100);
    EXPECT_EQ(find<QLabel>("brightness.value")->text(), QString::fromUtf8("\u2212100"));
    EXPECT_EQ(find<QLabel>("gamma.value")->text(), "0.40");
    EXPECT_EQ(find<QLabel>("speed.value")->text(), "50 %");
    EXPECT_EQ(find<QLabel>("delay.value")->text(), QString::fromUtf8("\u22122000 ms"));
    EXPECT_TRUE(find<QPushButton>("hardwareDecoding.0")->isChecked());
    click("defaults");
    EXPECT_EQ(find<TuningSlider>("brightness")->value(), 0);
    EXPECT_TRUE(find<QPushButton>("hardwareDecoding.1")->isChecked());
    EXPECT_EQ(stored(), settings) << "nothing is stored before Apply";
    click("apply");
    EXPECT_EQ(stored(), CodecSettings());
}

TEST_F(CodecWindow, ADoubleClickResetsASlider)
{
    start(CodecPages::Both);
    for (const char* name : {"hue", "gamma", "band1000", "speed"}) {
        auto* slider = find<TuningSlider>(name);
        const int standard = slider->value();
        slider->setValue(slider->maximum());
        QTest::mouseDClick(slider, Qt::LeftButton, {}, QPoint(3, 3));
        EXPECT_EQ(slider->value(), standard) << name;
    }
}

TEST_F(CodecWindow, APressPutsTheThumbThereAndADragTakesItAlong)
{
    start(CodecPages::Picture);
    auto* slider = find<TuningSlider>("brightness");
    const QPoint end(slider->width() - 4, slider->height() / 2);
    QTest::mousePress(slider, Qt::LeftButton, {}, end);
    EXPECT_EQ(slider->value(), 100);
    QTest::mouseMove(slider, QPoint(slider->width() / 2, slider->height() / 2));
    EXPECT_NEAR(slider->value(), 0, 1);
    QTest::mouseRelease(slider, Qt::LeftButton);
    EXPECT_EQ(find<QLabel>("brightness.value")->text().remove("+"), QString::number(slider->value()));
}

TEST_F(CodecWindow, TheOtherPagesValuesStay)
{
    start(CodecPages::Picture);
    CodecSettings sound;
    sound.set(Value::Speed, 150);
    ASSERT_TRUE(CodecFile(folder.path("codec.ini")).write(sound));
    find<TuningSlider>("hue")->setValue(7);
    click("apply");
    EXPECT_EQ(stored().get(Value::Speed), 150);
    EXPECT_EQ(stored().get(Value::Hue), 7);
}

TEST_F(CodecWindow, WhatCannotBeStoredIsSaid)
{
    std::filesystem::create_directory(folder.path("codec.ini"));
    start(CodecPages::Sound);
    click("apply");
    EXPECT_TRUE(status().contains("could not"));
    find<TuningSlider>("speed")->setValue(90);
    EXPECT_FALSE(status().contains("could not"));
}

TEST_F(CodecWindow, CloseEndsIt)
{
    start(CodecPages::Sound);
    click("close");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(CodecWindow, EveryControlHasANameToSayAndNothingIsCutOff)
{
    for (const char* language : {"EN", "ES", "FR", "IT", "DE", "PT"}) {
        for (const CodecPages pages : kAllPages) {
            start(pages, language);
            EXPECT_LE(window->width(), 640);
            EXPECT_LE(window->height(), 500);
            EXPECT_EQ(window->minimumSize(), window->maximumSize());
            for (const auto* control : window->findChildren<QWidget*>()) {
                const bool takesKeys = control->focusPolicy() != Qt::NoFocus && control->isVisible();
                if (takesKeys) {
                    EXPECT_FALSE(control->objectName().isEmpty() || control->accessibleName().isEmpty()) << language;
                }
            }
            for (auto* button : window->findChildren<QPushButton*>()) {
                const int text = button->fontMetrics().horizontalAdvance(button->text());
                if (button->isVisible()) {
                    EXPECT_LE(text + 8, button->width()) << language << " " << button->objectName().toStdString();
                }
            }
            for (auto* label : window->findChildren<QLabel*>()) {
                const bool fits = label->fontMetrics().horizontalAdvance(label->text()) <= label->width();
                if (label->isVisible()) {
                    EXPECT_TRUE(fits || label->wordWrap()) << language << " " << label->text().toStdString();
                }
            }
        }
    }
}

TEST_F(CodecWindow, TitlesAndTextsAreThoseOfTheLanguage)
{
    start(CodecPages::Picture, "DE");
    EXPECT_EQ(window->windowTitle(), "Tandrel Player - Videoeinstellungen");
    EXPECT_EQ(find<QPushButton>("close")->text(), QString::fromUtf8("Schließen"));
    start(CodecPages::Sound, "xx");
    EXPECT_EQ(window->windowTitle(), "Tandrel Player - Audio settings");
    std::set<std::string_view> keys;
    for (const CodecTextRow& row : codecTexts()) {
        EXPECT_TRUE(keys.insert(row.key).second) << row.key;
        for (const std::string_view text : row.texts)
            EXPECT_FALSE(text.empty()) << row.key;
    }
    EXPECT_THROW(CodecTexts("EN")("codec.nothing"), std::logic_error);
}

} // namespace tandrel::test
