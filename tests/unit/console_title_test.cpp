// What the title of the console says.

#include "player_bench.h"

#include "console/command_line.h"
#include "toolkit/program.h"

namespace tandrel::test
{

using ::testing::IsEmpty;

namespace
{

class ConsoleTitle : public Player
{
protected:
    void speak(const Text& code)
    {
        Language = world.settings.values["sys/langos"] = code;
        start();
    }
    bool saysNoMedia(const Text& title)
    {
        console().lblTitleBar.Caption = title;
        return console().titleSaysNoMedia();
    }
};

} // namespace

TEST_F(ConsoleTitle, NoMediaIsSaidInEnglishWhateverTheLanguage)
{
    for (const char* code : {"EN", "DE", "FR", "XX"}) {
        speak(code);
        EXPECT_TRUE(saysNoMedia("No Media Selected")) << code;
        EXPECT_TRUE(saysNoMedia(" no media SELECTED ")) << code;
        EXPECT_FALSE(saysNoMedia(" [ film.avi ] ")) << code;
        EXPECT_FALSE(saysNoMedia("")) << code;
    }
}

TEST_F(ConsoleTitle, NoMediaIsSaidInTheLanguageInUse)
{
    speak("DE");
    EXPECT_EQ(console().lblTitleBar.caption(), "Keine Medien Ausgewählte");
    EXPECT_TRUE(console().titleSaysNoMedia());
    EXPECT_FALSE(saysNoMedia("Aucun Média Sélectionné")) << "that is another language";
}

TEST_F(ConsoleTitle, AFailedOpenSaysSoInTheLanguageInUse)
{
    Language = world.settings.values["sys/langos"] = "ES";
    breakFilm(0);
    setCommandLine({alias(0), {}});
    start();
    ASSERT_EQ(world.backend.boxes.size(), 1U);
    EXPECT_EQ(world.backend.boxes[0].text, "El File no se puede jugar!");
    EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::Critical);
}

TEST_F(ConsoleTitle, TheQuestionAtTheStartIsPutInTheLanguageInUse)
{
    Language = world.settings.values["sys/langos"] = "PT";
    world.files.content.erase("/data/ext.dat");
    start();
    ASSERT_EQ(world.backend.boxes.size(), 1U);
    EXPECT_EQ(world.backend.boxes[0].text, "Faça Tandrel Player como reprodutor principal?");
    EXPECT_EQ(world.backend.boxTexts.yes, "&Sim");
}

TEST_F(ConsoleTitle, AnEndFromOutsideInTheMiddleOfTheQuestionOpensNothingMore)
{
    world.files.content.erase("/data/ext.dat");
    world.backend.boxAnswer = BoxAnswer::Cancel;
    world.backend.whileBoxIsUp = [] { Unload<class frmMedia>(); };
    setCommandLine({{}, {film(0), film(1)}});
    frmMedia();
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_TRUE(programEnded());
    EXPECT_EQ(world.backend.quits, 1);
}

TEST_F(ConsoleTitle, TheModeIsShown)
{
    start("0");
    EXPECT_EQ(console().lblMode.caption(), "PlayAll Mode");
    console().SlideMode = "1";
    console().showMode();
    EXPECT_EQ(console().lblMode.caption(), "PlayList Mode");
}

} // namespace tandrel::test
