// The help window: its rows in six languages, the pictures beside them, and the keys at its end.

#include "player_bench.h"

#include "console/hot_keys.h"
#include "media/shared_state.h"
#include "texts/frm_help.h"
#include "texts/localised.h"
#include "toolkit/program.h"

#include <map>

namespace tandrel::test
{

using ::testing::ElementsAre;

namespace
{

/// The rows from the top, by the numbers of their labels; there is no 15.
constexpr std::array<int, 16> kRows{1, 2, 3, 7, 8, 5, 6, 4, 9, 10, 11, 12, 13, 16, 14, 17};

/// Labels by number, and the pictures of what they describe.
const std::map<int, std::vector<Text>> kPictures{{1, {"open"}},
                                                 {2, {"play"}},
                                                 {3, {"pause"}},
                                                 {4, {"help"}},
                                                 {5, {"hide"}},
                                                 {6, {"exit"}},
                                                 {7, {"forward"}},
                                                 {8, {"rewind"}},
                                                 {9, {"mouse_right"}},
                                                 {10, {"mouse_left"}},
                                                 {11, {"mouse_wheel"}},
                                                 {12, {"mouse_right"}},
                                                 {13, {"video", "audio"}},
                                                 {14, {"pause_all", "mute"}},
                                                 {16, {"tray"}},
                                                 {17, {"layout"}}};

class TextsHelp : public Player
{
protected:
    TextsHelp() { start(); }
    /// The window anew, by a user of that language.
    void openIn(std::string_view code)
    {
        Unload<class frmHelp>();
        Language = code;
        frmHelp();
    }
    Text captionOf(const Text& name)
    {
        for (const Control* control : frmHelp().controls())
            if (const auto* label = dynamic_cast<const Label*>(control); label && label->name() == name)
                return label->caption();
        return "no label " + name;
    }
};

} // namespace

TEST_F(TextsHelp, ItsTitleEndsWithThatOfTheProgram)
{
    for (const auto code : kTextLanguages) {
        openIn(code);
        EXPECT_EQ(frmHelp().caption(), localisedIn("frmHelp.caption", code) + AppTitle);
        EXPECT_TRUE(frmHelp().caption().ends_with(" - " + AppTitle)) << code;
    }
}

TEST_F(TextsHelp, EachRowIsInTheUsersLanguage)
{
    for (const auto code : kTextLanguages) {
        openIn(code);
        for (const int number : kRows)
            EXPECT_EQ(frmHelp().description(number).caption(),
                      localisedIn("frmHelp.Label" + std::to_string(number), code))
                << number;
        EXPECT_EQ(frmHelp().cmdOK.caption(), localisedIn("frmHelp.cmdOK", code));
        EXPECT_EQ(captionOf("lblKeys"), localisedIn("frmHelp.keysTitle", code));
    }
}

TEST_F(TextsHelp, ThereAreSixteenRowsAndNoFifteenth)
{
    int found = 0;
    for (int number = 0; number < 20; ++number)
        try {
            EXPECT_EQ(frmHelp().description(number).name(), "Label" + std::to_string(number));
            ++found;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), error::kOutOfRange);
        }
    EXPECT_EQ(found, 16);
    EXPECT_THROW(frmHelp().description(15), RuntimeError);
}

TEST_F(TextsHelp, TheRowsStandBelowEachOtherInFourGroups)
{
    std::vector<int> steps;
    for (std::size_t row = 1; row < kRows.size(); ++row)
        steps.push_back(frmHelp().description(kRows[row]).top() - frmHelp().description(kRows[row - 1]).top());
    const int step = steps.front();
    EXPECT_GE(step, frmHelp().description(1).height());
    std::vector<int> groups;
    for (std::size_t row = 0; row < steps.size(); ++row) {
        EXPECT_GE(steps[row], step);
        if (steps[row] > step)
            groups.push_back(kRows[row + 1]);
    }
    EXPECT_THAT(groups, ElementsAre(9, 13, 14)) << "where the mouse, the codecs and the group buttons begin";
}

TEST_F(TextsHelp, EachRowHasThePicturesOfWhatItDescribesBesideIt)
{
    for (const int number : kRows) {
        const Label& label = frmHelp().description(number);
        std::vector<Text> names;
        for (const Image* picture : frmHelp().pictures(number)) {
            names.push_back(picture->picture());
            EXPECT_LE(picture->left() + picture->width(), label.left()) << number;
            EXPECT_NEAR(picture->top() + picture->height() / 2, label.top() + label.height() / 2, 15) << number;
        }
        EXPECT_EQ(names, kPictures.at(number)) << number;
    }
    EXPECT_TRUE(frmHelp().pictures(15).empty());
}

TEST_F(TextsHelp, ThePicturesAreThoseOfTheConsolesButtons)
{
    const std::map<int, const Image*> buttons{
        {1, &console().imgOpen}, {2, &console().imgPlay}, {3, &console().imgPause},
        {4, &console().imgHelp}, {5, &console().imgHide}, {6, &console().imgExit},
        {7, &console().imgFwd},  {8, &console().imgRwd},  {17, &console().imgResize}};
    for (const auto& [number, button] : buttons)
        EXPECT_EQ(frmHelp().pictures(number).front()->picture(), button->picture()) << number;
    EXPECT_EQ(frmHelp().pictures(13)[0]->picture(), console().imgVideo.picture());
    EXPECT_EQ(frmHelp().pictures(13)[1]->picture(), console().imgAudio.picture());
    EXPECT_EQ(frmHelp().pictures(14)[0]->picture(), console().imgPauseAll.picture());
    EXPECT_EQ(frmHelp().pictures(14)[1]->picture(), console().imgMute.picture());
}

TEST_F(TextsHelp, ADoubledAmpersandIsLeftToTheView)
{
    EXPECT_EQ(frmHelp().description(14).caption(), "Pause && Mute all Video on the screen");
    for (const int number : kRows)
        EXPECT_TRUE(frmHelp().description(number).usesMnemonic) << number;
}

TEST_F(TextsHelp, NothingReachesOutOfIt)
{
    for (const Control* control : frmHelp().controls()) {
        EXPECT_GE(control->left(), 0) << control->name();
        EXPECT_LE(control->left() + control->width(), frmHelp().width()) << control->name();
        EXPECT_LE(control->top() + control->height(), frmHelp().height() - 25 * 15) << control->name();
    }
}

TEST_F(TextsHelp, ItsButtonClosesItAsEnterAndEscapeDo)
{
    frmHelp().Show();
    EXPECT_TRUE(frmHelp().cmdOK.isDefault);
    EXPECT_TRUE(frmHelp().cmdOK.isCancel);
    frmHelp().cmdOK.userClick();
    EXPECT_FALSE(Loaded<class frmHelp>());
}

TEST_F(TextsHelp, StandsInTheMiddleOfTheConsolesMonitor)
{
    world.monitors.all = {{1, {0, 0, 1920, 1080}, {0, 0, 1920, 1080}},
                          {2, {-1280, -200, 0, 824}, {-1280, -200, 0, 800}}};
    world.monitors.windowMonitor = 2;
    EXPECT_EQ(frmHelp().left(), -19200 + (19200 - frmHelp().width()) / 2);
    EXPECT_EQ(frmHelp().top(), -3000 + (15000 - frmHelp().height()) / 2);
}

TEST_F(TextsHelp, ClosesUpOnALowScreen)
{
    console().FullHeight = 600 * 15;
    EXPECT_LT(frmHelp().height(), 560 * 15);
    for (const Control* control : frmHelp().controls())
        EXPECT_LE(control->top() + control->height(), frmHelp().height() - 25 * 15) << control->name();
}

TEST_F(TextsHelp, BeginsAtTheTopOfAScreenThatIsTooLowForIt)
{
    world.monitors.all = {{1, {0, 100, 800, 500}, {0, 100, 800, 500}}};
    console().FullTop = 100 * 15;
    console().FullHeight = 400 * 15;
    EXPECT_EQ(frmHelp().top(), 100 * 15);
}

TEST_F(TextsHelp, ListsEveryKeyThatWorksEverywhere)
{
    for (const HotKeyRow& key : hotKeyTable()) {
        EXPECT_EQ(captionOf("lblKey" + std::to_string(key.id)), localised(key.text));
        EXPECT_EQ(captionOf("lblKeyName" + std::to_string(key.id)), key.combination);
    }
    EXPECT_EQ(captionOf("lblKeyName7"), "no label lblKeyName7");
}

TEST_F(TextsHelp, SaysWhichKeyAnotherProgramHas)
{
    world.hotKeys.takenElsewhere = {"Ctrl+Alt+Shift+P"};
    Unload<class frmMedia>();
    beginProgram();
    Language = "FR";
    start();
    for (const HotKeyRow& key : hotKeyTable()) {
        const Text combination = key.combination;
        EXPECT_EQ(captionOf("lblKeyName" + std::to_string(key.id)),
                  combination == "Ctrl+Alt+Shift+P" ? combination + "  (utilisée par un autre programme)"
                                                    : combination);
    }
}

} // namespace tandrel::test
