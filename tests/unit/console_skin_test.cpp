// How the console looks: its outline, its controls and what they say in the user's language.

#include "player_bench.h"

#include "console/frm_start.h"
#include "console/slidemenu.h"
#include "desktop/slider_background.h"
#include "texts/localised.h"
#include "texts/menu.h"
#include "toolkit/program.h"

#include <map>
#include <set>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;
using ::testing::UnorderedElementsAre;

namespace
{

/// Tips that are English in every language.
const std::map<Text, Text> kEnglishTips{{"imgMute", "Mute All On/Off"},
                                        {"imgMin", "Volume -"},
                                        {"imgMax", "Volume +"},
                                        {"imgTwitter", "Share On Twitter"},
                                        {"imgFaceBook", "Share On FaceBook"}};

/// Rows of marks: '.' is clear, any other the body.
Bitmap drawn(const std::vector<std::string>& rows)
{
    Bitmap picture{static_cast<int>(rows.front().size()), static_cast<int>(rows.size()), {}};
    for (const std::string& row : rows)
        for (const char mark : row)
            picture.pixels.push_back(mark == '.' ? 0 : rgb(14, 45, 81));
    return picture;
}

bool isTabStop(const Control& control)
{
    if (const auto* image = dynamic_cast<const Image*>(&control))
        return image->tabStop;
    return dynamic_cast<const Slider*>(&control) || dynamic_cast<const CommandButton*>(&control) ||
           dynamic_cast<const CheckBox*>(&control);
}

class ConsoleSkin : public Player
{
protected:
    /// The console anew, by a user of that language.
    void startIn(std::string_view code)
    {
        Unload<class frmMedia>();
        beginProgram();
        Language = code;
        start();
    }
    std::vector<Image*> buttons()
    {
        std::vector<Image*> all;
        for (Control* control : console().controls())
            if (auto* image = dynamic_cast<Image*>(control); image && image->Click)
                all.push_back(image);
        return all;
    }
    /// Where an outline was given to the console, in order.
    std::vector<std::string> regions() { return startingWith(world.journal, "frmMedia region "); }
    std::vector<std::string> hidden()
    {
        std::vector<std::string> names;
        for (const Control* control : console().controls())
            if (!control->visible())
                names.push_back(control->name());
        return names;
    }
};

} // namespace

// The outline.

TEST_F(ConsoleSkin, TheOutlineIsThatOfItsBody)
{
    world.backend.windows = true;
    world.backend.pictures["console"] = drawn({"......", ".##.#.", "..####"});
    frmMedia();
    EXPECT_THAT(regions(), ElementsAre("frmMedia region of 3"));
}

TEST_F(ConsoleSkin, ABodyOfOneColourLeavesNothingOfTheWindow)
{
    world.backend.windows = true;
    world.backend.pictures["console"] = drawn({"###", "###"});
    frmMedia();
    EXPECT_THAT(regions(), ElementsAre("frmMedia region of 0"));
}

TEST_F(ConsoleSkin, TheOutlineDoesNotFollowTheSize)
{
    world.backend.windows = true;
    start();
    console().Width = 9000;
    EXPECT_THAT(regions(), IsEmpty());
    console().ApplicaMaschera();
    EXPECT_THAT(regions(), ElementsAre("frmMedia region of 0"));
}

TEST_F(ConsoleSkin, ItsDragSurfaceCoversAllOfItBehindTheLoad)
{
    world.backend.whileModal["frmSplash"] = [](Form&) {
        frmMedia().Sposta.Top = 500;
        frmMedia().Sposta.Width = 10;
        frmMedia().Sposta.Height = 10;
    };
    start();
    EXPECT_EQ(rectOf(console().Sposta), (Rect{0, 0, 13500, 3180}));
    EXPECT_EQ(rectOf(console().Maschera), (Rect{0, 0, 13500, 3180}));
    EXPECT_EQ(console().Maschera.picture(), console().imgBody.picture()) << "what is seen is what is cut out";
}

TEST_F(ConsoleSkin, NoControlReachesOutOfIt)
{
    start();
    for (const Control* control : console().controls()) {
        if (!control->visible())
            continue;
        EXPECT_GE(control->left(), 0) << control->name();
        EXPECT_GE(control->top(), 0) << control->name();
        EXPECT_LE(control->left() + control->width(), console().width()) << control->name();
        EXPECT_LE(control->top() + control->height(), console().height()) << control->name();
    }
}

TEST_F(ConsoleSkin, ItCanBeMadeTranslucentAndStaysLayered)
{
    world.backend.windows = true;
    start();
    EXPECT_EQ(console().windowWord(style::kExtendedWord) & 524288, 0);
    Integer alpha = 120;
    console().ImpostaTrasparenza(alpha);
    EXPECT_EQ(console().windowWord(style::kExtendedWord) & 524288, 524288);
    alpha = 255;
    console().ImpostaTrasparenza(alpha);
    EXPECT_EQ(console().windowWord(style::kExtendedWord) & 524288, 524288);
    EXPECT_THAT(world.journal, ElementsAre("frmMedia opacity 120", "frmMedia opacity 255"));
    EXPECT_EQ(console().iTrans, 255) << "the stored value is another thing";
}

TEST_F(ConsoleSkin, TheStoredOpacityChangesNothingByItself)
{
    world.backend.windows = true;
    start();
    EXPECT_EQ(console().iTrans, 255);
    console().iTrans = 40;
    EXPECT_EQ(console().iTrans, 40);
    EXPECT_THAT(world.journal, IsEmpty());
    EXPECT_EQ(console().windowWord(style::kExtendedWord) & 524288, 0);
}

TEST_F(ConsoleSkin, ThePositionSliderAloneIsPaintedOnTheColourOfTheBody)
{
    start();
    ASSERT_TRUE(console().ControlColour);
    for (const Control* control : console().controls()) {
        if (control == &console().SeekSlider)
            EXPECT_THAT(console().ControlColour(*control), Optional(Long(rgb(14, 45, 81))));
        else
            EXPECT_EQ(console().ControlColour(*control), std::nullopt) << control->name();
    }
}

TEST_F(ConsoleSkin, TheBrushIsGoneWithTheConsole)
{
    start();
    class frmMedia& ended = console();
    const auto alive = ended.shared_from_this();
    Unload<class frmMedia>();
    EXPECT_FALSE(ended.ControlColour);
    SliderHookInstall(ended, ended.SeekSlider);
    EXPECT_EQ(ended.ControlColour(ended.SeekSlider), std::nullopt) << "no brush is left for another hook";
}

// The controls.

TEST_F(ConsoleSkin, EveryImageButtonShowsAPressOfTheLeftButtonOnly)
{
    start();
    ASSERT_EQ(buttons().size(), 24U);
    for (Image* button : buttons()) {
        for (const int other : {mouse::kRight, mouse::kMiddle}) {
            button->userMouseDown({other, 0, 0, 0});
            EXPECT_EQ(button->borderStyle(), 0) << button->name();
        }
        button->userMouseDown({mouse::kLeft, 0, 0, 0});
        EXPECT_EQ(button->borderStyle(), 1) << button->name();
        for (const int other : {mouse::kRight, mouse::kMiddle}) {
            button->userMouseUp({other, 0, 0, 0});
            EXPECT_EQ(button->borderStyle(), 1) << button->name();
        }
        button->userMouseUp({mouse::kLeft, 0, 0, 0});
        EXPECT_EQ(button->borderStyle(), 0) << button->name();
    }
}

TEST_F(ConsoleSkin, EveryImageButtonHasAPictureOfItsOwn)
{
    start();
    std::set<Text> pictures;
    for (const Image* button : buttons()) {
        EXPECT_TRUE(pictures.insert(button->picture()).second) << button->name();
        EXPECT_NE(button->plate, Plate::None) << button->name();
    }
    EXPECT_EQ(console().imgPlay.plate, Plate::Play);
}

TEST_F(ConsoleSkin, TabGoesThroughTheControlsInTheOrderOfTheirGroups)
{
    start();
    std::vector<std::string> stops;
    for (const Control* control : console().controls())
        if (control->visible() && isTabStop(*control))
            stops.push_back(control->name());
    EXPECT_THAT(stops,
                ElementsAre("imgPlay", "imgPause", "imgRwd", "imgFwd", "imgReplay", "imgOpen", "SeekSlider", "imgBack",
                            "imgPauseAll", "imgStep", "imgResync", "imgMute", "imgResize", "imgVideo", "imgAudio",
                            "imgShare", "imgHelp", "imgFaceBook", "imgTwitter", "InvertSlider", "imgMax", "imgMin",
                            "imgStill", "cmdSize0", "cmdSize1", "chkFullscreen", "imgHide", "imgDwn", "imgExit"));
}

TEST_F(ConsoleSkin, WhatIsPressedByOthersOnlyIsSeenByNobody)
{
    start();
    EXPECT_THAT(hidden(),
                UnorderedElementsAre("Maschera", "imgLoad", "lblNote", "VolumeSlider", "cmdFwd", "cmdRwd", "cmdVideo",
                                     "cmdAudio", "cmdMedia0", "cmdMedia1", "cmdMedia2", "cmdMedia3", "cmdMedia4",
                                     "cmdMedia6", "cmdMedia7", "Label2", "lblClick", "lblDblClick", "lblTimeClick"));
    EXPECT_EQ(console().cmdMedia[5], nullptr) << "an index without a button";
}

TEST_F(ConsoleSkin, TheVolumeIsWrittenBesideItsSlider)
{
    start();
    EXPECT_EQ(console().lblVolume.caption(), "50");
    console().VolumeSlider.Value = 37;
    EXPECT_EQ(console().lblVolume.caption(), "37");
    console().InvertSlider.Value = 12;
    EXPECT_EQ(console().lblVolume.caption(), "37") << "the hidden slider keeps the level";
}

TEST_F(ConsoleSkin, TheDisplaySaysWhichModeHolds)
{
    start("0");
    EXPECT_EQ(console().lblMode.caption(), "PlayAll Mode");
    for (const char* mode : {"1", ""}) {
        console().SlideMode = mode;
        console().showMode();
        EXPECT_EQ(console().lblMode.caption(), "PlayList Mode");
        console().SlideMode = "0";
        console().showMode();
        EXPECT_EQ(console().lblMode.caption(), "PlayAll Mode");
    }
    startIn("EN");
    EXPECT_EQ(console().lblMode.caption(), "PlayList Mode");
}

TEST_F(ConsoleSkin, AChangeOfModeByTheMenuIsSeenInTheDisplay)
{
    start("0");
    world.backend.menuChoice = "mnuSlideLeft";
    console().imgResize.userClick();
    EXPECT_EQ(console().lblMode.caption(), "PlayList Mode");
    world.backend.menuChoice = "mnuSlideCenter";
    console().imgResize.userClick();
    EXPECT_EQ(console().lblMode.caption(), "PlayAll Mode");
}

// The language.

TEST_F(ConsoleSkin, EveryImageButtonHasItsTipInTheUsersLanguage)
{
    for (const auto code : kTextLanguages) {
        startIn(code);
        int english = 0;
        for (const Image* button : buttons()) {
            const auto same = kEnglishTips.find(button->name());
            english += same == kEnglishTips.end() ? 0 : 1;
            EXPECT_EQ(button->toolTip(),
                      same == kEnglishTips.end() ? localisedIn("frmMedia." + button->name(), code) : same->second)
                << code;
        }
        EXPECT_EQ(english, 5);
        EXPECT_EQ(console().InvertSlider.toolTip(), localisedIn("frmMedia.InvertSlider", code));
    }
}

TEST_F(ConsoleSkin, ItsLabelsAndMenusAreInTheUsersLanguage)
{
    for (const auto code : kTextLanguages) {
        startIn(code);
        for (const Label* label :
             {&console().Label4, &console().Label6, &console().Label7, &console().lblGroup, &console().lblTitleBar})
            EXPECT_EQ(label->caption(), localisedIn("frmMedia." + label->name(), code)) << code;
        EXPECT_EQ(menu().mnuHelp.caption(), localisedIn("menu.mnuHelp", code));
        EXPECT_EQ(menu().mnuEsci.caption(), localisedIn("menu.mnuEsci", code));
        EXPECT_EQ(slidemenu().mnuSlideLeft.caption(), localisedIn("slidemenu.mnuSlideLeft", code));
        EXPECT_EQ(slidemenu().mnuSlideCenter.caption(), localisedIn("slidemenu.mnuSlideCenter", code));
        EXPECT_EQ(world.backend.boxTexts.yes, localisedIn("box.yes", code));
        EXPECT_EQ(world.backend.boxTexts.no, localisedIn("box.no", code));
        EXPECT_EQ(world.backend.boxTexts.ok, localisedIn("box.ok", code));
        EXPECT_EQ(world.backend.boxTexts.minimise, localisedIn("system.minimise", code));
        EXPECT_EQ(world.backend.boxTexts.close, localisedIn("system.close", code));
    }
}

TEST_F(ConsoleSkin, InSpanish)
{
    startIn("ES");
    EXPECT_EQ(console().imgOpen.toolTip(), "Abrir...");
    EXPECT_EQ(console().Label7.caption(), "Actual");
    EXPECT_EQ(console().Label6.caption(), "Total");
    EXPECT_EQ(console().LanguageCode, "ES");
}

TEST_F(ConsoleSkin, AnUnknownLanguageIsEnglishWithoutAMessage)
{
    world.settings.values["sys/langos"] = "XX";
    frmStart().start();
    EXPECT_EQ(console().LanguageCode, "XX");
    EXPECT_EQ(console().imgOpen.toolTip(), "Open...");
    EXPECT_EQ(console().Label7.caption(), "Current");
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

} // namespace tandrel::test
