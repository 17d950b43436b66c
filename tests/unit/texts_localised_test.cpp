// The texts of the interface: the table as a whole, spots of it byte by byte, and the choice of the language.

#include "media/shared_state.h"
#include "texts/localised.h"
#include "texts/localised_dialog.h"

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <stdexcept>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

namespace
{

class TextsLocalised : public ::testing::Test
{
protected:
    TextsLocalised() { resetSharedState(); }
    ~TextsLocalised() override { resetSharedState(); }
};

/// The text of `key` in all languages.
std::vector<Text> row(std::string_view key)
{
    std::vector<Text> all;
    for (const auto code : kTextLanguages)
        all.push_back(localisedIn(key, code));
    return all;
}

/// Calls `task` with each text of the table and what to call it in a message.
template <class Task>
void forEachText(Task task)
{
    for (const TextRow& one : textTable())
        for (std::size_t column = 0; column < kTextLanguages.size(); ++column)
            task(one.texts[column], Text(one.key) + " " + Text(kTextLanguages[column]));
}

Text groupOf(std::string_view key) { return Text(key.substr(0, key.find('.'))); }

int count(std::string_view text, std::string_view part)
{
    int times = 0;
    for (auto at = text.find(part); at != std::string_view::npos; at = text.find(part, at + part.size()))
        ++times;
    return times;
}

/// A whole sequence has its full length here; a byte that belongs to none is a character of one byte beyond ASCII.
bool isUtf8(std::string_view text)
{
    for (; !text.empty(); text.remove_prefix(firstCharacterLength(text)))
        if (firstCharacterLength(text) == 1 && static_cast<unsigned char>(text.front()) > 127)
            return false;
    return true;
}

} // namespace

// The table.

TEST_F(TextsLocalised, TheColumnsAreTheLanguagesInTheirOrder)
{
    EXPECT_THAT(kTextLanguages, ElementsAre("EN", "ES", "FR", "IT", "DE", "PT"));
    EXPECT_THAT(textTable().front().texts, ElementsAre("Help", "Ayuda", "Aider", "Aiuto", "Hilfe", "Ajuda"));
}

TEST_F(TextsLocalised, EveryFormHasItsRows)
{
    std::map<Text, int> rows;
    for (const TextRow& one : textTable())
        ++rows[groupOf(one.key)];
    EXPECT_THAT(
        rows, UnorderedElementsAre(Pair("frmMedia", 26), Pair("menu", 2), Pair("openmenu", 5), Pair("slidemenu", 2),
                                   Pair("stillmenu", 2), Pair("note", 2), Pair("frmHelp", 27), Pair("message", 33),
                                   Pair("keys", 10), Pair("frmToolTip", 2), Pair("title", 3), Pair("frmPrev", 12),
                                   Pair("track", 3), Pair("box", 3), Pair("system", 2), Pair("dialog", 24),
                                   Pair("fullmenu", 14), Pair("dvdmenu", 1), Pair("frmFFDShow", 2), Pair("spoken", 2)));
}

TEST_F(TextsLocalised, KeysAreUniqueAndNameAGroup)
{
    std::set<std::string_view> keys;
    for (const TextRow& one : textTable()) {
        EXPECT_TRUE(keys.insert(one.key).second) << one.key;
        EXPECT_EQ(count(one.key, "."), 1) << one.key;
    }
}

TEST_F(TextsLocalised, NoTextIsEmpty)
{
    forEachText([](std::string_view text, const Text& name) { EXPECT_NE(trim(text), "") << name; });
}

TEST_F(TextsLocalised, EveryTextIsUtf8WithoutControls)
{
    ASSERT_FALSE(isUtf8("\xE9t\xE9"));
    forEachText([](std::string_view text, const Text& name) {
        EXPECT_TRUE(isUtf8(text)) << name;
        for (const char byte : text)
            EXPECT_TRUE(static_cast<unsigned char>(byte) >= ' ' && byte != '\x7F') << name;
        EXPECT_EQ(text.find("\xC2\xA0"), std::string_view::npos) << name << ": a blank that does not break";
    });
}

TEST_F(TextsLocalised, AnAmpersandIsOneInEveryLanguageAndAnAccessKeyIsOneAtMost)
{
    int ampersands = 0;
    for (const TextRow& one : textTable())
        for (const std::string_view text : one.texts) {
            EXPECT_EQ(count(text, "&&"), count(one.texts.front(), "&&")) << text;
            const int keys = count(text, "&") - 2 * count(text, "&&");
            EXPECT_LE(keys, 1) << text;
            EXPECT_FALSE(text.ends_with("&")) << text;
            ampersands += count(text, "&&");
        }
    EXPECT_EQ(ampersands, 6) << "one row has them";
}

TEST_F(TextsLocalised, ButtonsThatStandTogetherHaveKeysOfTheirOwn)
{
    const auto keyOf = [](const Text& text) { return lower(text.substr(text.find('&') + 1, 1)); };
    for (const auto code : kTextLanguages) {
        EXPECT_NE(keyOf(localisedIn("box.yes", code)), keyOf(localisedIn("box.no", code))) << code;
        for (const char* button : {"box.yes", "box.no", "box.ok"})
            EXPECT_EQ(localisedIn(button, code).front(), '&') << code;
    }
}

TEST_F(TextsLocalised, OnlyTheseTextsAreThoseOfEnglish)
{
    std::set<Text> same;
    for (const TextRow& one : textTable())
        for (std::size_t column = 1; column < kTextLanguages.size(); ++column)
            if (one.texts[column] == one.texts.front())
                same.insert(Text(one.key) + " " + Text(kTextLanguages[column]));
    EXPECT_THAT(same, UnorderedElementsAre(
                          "frmMedia.imgPause FR", "frmMedia.imgPause DE", "frmMedia.Label6 ES", "frmMedia.Label6 FR",
                          "frmMedia.Label6 PT", "frmMedia.Label4 ES", "frmMedia.Label4 FR", "frmMedia.Label4 IT",
                          "frmMedia.Label4 PT", "frmMedia.InvertSlider FR", "frmMedia.InvertSlider IT",
                          "frmMedia.InvertSlider PT", "box.no ES", "box.no IT", "box.ok FR", "box.ok IT", "box.ok DE",
                          "box.ok PT", "dialog.computer IT", "dialog.computer DE", "dialog.home IT", "dialog.kind FR",
                          "dialog.name DE", "dialog.videos DE", "fullmenu.mnuVideo DE", "fullmenu.mnuPause FR",
                          "fullmenu.mnuPause DE", "frmPrev.lblFiles DE", "frmPrev.lblMKV ES", "frmPrev.lblMKV FR",
                          "frmPrev.lblMKV IT", "frmPrev.lblMKV DE", "frmPrev.lblMKV PT", "keys.video IT",
                          "keys.video DE", "spoken.place FR", "spoken.place DE"));
}

TEST_F(TextsLocalised, TheDialogNamesWhatItSpeaksOf)
{
    for (const TextRow& one : textTable())
        for (const auto text : one.texts)
            EXPECT_EQ(count(text, "%1"), one.key == "dialog.notThere" || one.key == "dialog.replace" ? 1 : 0) << text;
}

TEST_F(TextsLocalised, TheDialogHasItsTextsInTheLanguageInUse)
{
    Language = "DE";
    const FileDialogTexts texts = localisedDialogTexts();
    EXPECT_EQ(texts.open, "Ö&ffnen");
    EXPECT_EQ(texts.cancel, "Abbrechen");
    EXPECT_EQ(texts.lookIn, "Suchen &in:");
    EXPECT_EQ(texts.size, "Größe");
    EXPECT_EQ(texts.folder, "Ordner");
    EXPECT_EQ(texts.replace, localised("dialog.replace"));
    Language = "EN";
    EXPECT_EQ(localisedDialogTexts().open, FileDialogTexts().open);
    EXPECT_EQ(localisedDialogTexts().replace, FileDialogTexts().replace);
}

// Spots.

TEST_F(TextsLocalised, TheConsole)
{
    EXPECT_THAT(row("frmMedia.imgOpen"),
                ElementsAre("Open...", "Abrir...", "Ouvre...", "Apri...", "Öffnen...", "Abrir..."));
    EXPECT_THAT(row("frmMedia.Label7"), ElementsAre("Current", "Actual", "Actuel", "Attuale", "Huidige", "Atual"));
    EXPECT_THAT(row("frmMedia.Label6"), ElementsAre("Total", "Total", "Total", "Totale", "Totaal", "Total"));
    EXPECT_THAT(row("frmMedia.InvertSlider"),
                ElementsAre("Volume", "Volumen", "Volume", "Volume", "Lautst\xC3\xA4rke", "Volume"));
    EXPECT_THAT(row("frmMedia.lblTitleBar"),
                ElementsAre("No Media Selected", "No Media Seleccionados", "Aucun Média Sélectionné",
                            "Nessun Media Selezionato", "Keine Medien Ausgewählte", "No Media Selecionados"));
}

TEST_F(TextsLocalised, TheModeInBracketsIsEnglishEverywhere)
{
    EXPECT_THAT(row("frmMedia.imgPauseAll"),
                ElementsAre("[PlayAll Mode] Pause/Play All Videos", "[PlayAll Mode] Pausa/Reproducir todos los Videos",
                            "[PlayAll Mode] Pause/Lecture toutes les Vidéos",
                            "[PlayAll Mode] Pausa/Avvia tutti i Video", "[PlayAll Mode] Pause/Wiedergabe Alle Videos",
                            "[PlayAll Mode] Quebrar/Brincar todos os Vídeos"));
    EXPECT_THAT(row("frmMedia.imgBack"), ElementsAre("[PlayAll Mode] Back by Frame All Videos",
                                                     "[PlayAll Mode] Espalda por Frame todos los Videos",
                                                     "[PlayAll Mode] Retour par Frame toutes les Vidéos",
                                                     "[PlayAll Mode] Indietro per Frame tutti i Video",
                                                     "[PlayAll Mode] Back by Frame Alle Videos",
                                                     "[PlayAll Mode] Costas a Frame todos os Vídeos"));
    for (const char* key : {"frmMedia.imgResync", "frmMedia.imgPauseAll", "frmMedia.imgBack", "frmMedia.imgStep"})
        for (const Text& text : row(key))
            EXPECT_TRUE(text.starts_with("[PlayAll Mode] ")) << text;
    for (const Text& text : row("slidemenu.mnuSlideCenter"))
        EXPECT_TRUE(text.ends_with(" [PlayAll Mode]")) << text;
    for (const Text& text : row("slidemenu.mnuSlideLeft"))
        EXPECT_TRUE(text.ends_with(" [PlayList Mode]")) << text;
}

TEST_F(TextsLocalised, Menus)
{
    EXPECT_THAT(row("menu.mnuHelp"),
                ElementsAre("&Help", "Ayuda (?)", "Aider (?)", "Aiuto (?)", "Hilfe (?)", "Ajuda (?)"));
    EXPECT_THAT(row("openmenu.mnuOpenMulti"),
                ElementsAre("Open &Miltiple Video ...", "Abrir &Multiples Vídeo ...", "Ouvre &Multiples Vidéo ...",
                            "Apri Video &Multipli ...", "Öffnen &Mehrere Video ...", "Abrir &Múltiplos Vídeo ..."));
    EXPECT_THAT(row("openmenu.mnuOpenLast"),
                ElementsAre("Open &Recent Files ...", "Abrir Files &Recientes ...", "Ouvrez Files &Récents ...",
                            "Apri File &Recenti", "Öffnen &Aktuelle Files ...", "Abrir Files &Recentes ..."));
    EXPECT_THAT(row("slidemenu.mnuSlideLeft"),
                ElementsAre("Allign to &Side [PlayList Mode]", "Alinear a &Otro [PlayList Mode]",
                            "Aligner sur le &Côté [PlayList Mode]", "Allinea a &Lato [PlayList Mode]",
                            "Alling zu &Seite [PlayList Mode]", "Alinhar ao &Lado [PlayList Mode]"));
}

TEST_F(TextsLocalised, TheNoteOnFullScreenKeepsItsBlanks)
{
    EXPECT_THAT(row("frmHelp.Label4"), ElementsAre("Show Help" + blanks(17) + "(FS = Fullscreen)",
                                                   "Mostrar Ayuda" + blanks(40) + "(FS = Pantalla Completa)",
                                                   "Afficher l'aide" + blanks(40) + "(FS = plein écran)",
                                                   "Visualizza Aiuto" + blanks(39) + "(FS = Schermo Pieno)",
                                                   "Hilfe anzeigen" + blanks(41) + "(FS = Vollbild)",
                                                   "Mostrar Ajuda" + blanks(43) + "(FS = Full Screen)"));
}

TEST_F(TextsLocalised, TheHelpWindow)
{
    EXPECT_THAT(
        row("frmHelp.Label14"),
        ElementsAre("Pause && Mute all Video on the screen", "Interrumpir && Silenciar todo el Vídeo en la pantalla",
                    "Pause && Muet tous le Vidéo sur l'écran", "Pausa && Ammutolisce tutti i Video sullo schermo",
                    "Pause && Stumm Alle Video auf dem Bildschirm", "Quebrar && Silencia todos os Vídeos na tela"));
    EXPECT_EQ(localisedIn("frmHelp.Label9", "EN"), "1\xC2\xB0 Right-Mouse to Fullscreen Video selected");
    EXPECT_EQ(localisedIn("frmHelp.Label16", "EN"), "Tray icon for FFDSHOW Audio/Video settings ");
    EXPECT_THAT(row("frmHelp.cmdOK"), ElementsAre("&Close", "&Cerrar", "&Fermer", "&Chiudi", "&Schließen", "&Fechar"));
    for (const Text& text : row("frmHelp.caption"))
        EXPECT_TRUE(text.ends_with(" - ")) << text << ": the program's title stands behind it";
}

TEST_F(TextsLocalised, Messages)
{
    EXPECT_THAT(row("message.tooMany"), ElementsAre("Attention! Caught up the maximum number of Videos opened!",
                                                    "Atención! Atrapados en el número máximo de Vídeos apertura!",
                                                    "Attention! Pris par le nombre maximal de Vidéos ouvert!",
                                                    "Attenzione! Raggiunto il numero massimo di Video aperti!",
                                                    "ACHTUNG! Erreicht die maximale anzahl offener Videos!",
                                                    "Atenção! Atingiu o número máximo de Vídeos aberto!"));
    EXPECT_EQ(localisedIn("message.makePrimary", "ES"), "\xC2\xBF Hacer Tandrel Player el reproductor primario?");
    EXPECT_THAT(row("frmPrev.noFile"),
                ElementsAre("   No File selected.", "   No File seleccionados.", "   Aucun File sélectionné.",
                            "   Nessun File selezionato.", "   Keine File ausgewählt.", "   Nenhum File selecionado."));
}

TEST_F(TextsLocalised, TheEnglishMessagesAreThoseOfTheProgram)
{
    EXPECT_EQ(localisedIn("message.cannotPlay", "EN"), "Media File can't be played!");
    EXPECT_EQ(localisedIn("message.makePrimary", "EN"), "Make Tandrel Player as primary player?");
    EXPECT_EQ(localisedIn("frmMedia.lblTitleBar", "EN"), kNoMedia);
}

TEST_F(TextsLocalised, TheTipNamesTheButtonAsTheConsoleDoes)
{
    for (const auto code : kTextLanguages)
        EXPECT_NE(localisedIn("frmToolTip.line2", code).find("[" + localisedIn("frmMedia.imgResize", code) + "]"),
                  Text::npos)
            << code;
}

// The language.

TEST_F(TextsLocalised, TheLanguageInUseIsTakenAtEachQuestion)
{
    EXPECT_EQ(localised("frmMedia.imgOpen"), "Open...") << "none is chosen yet";
    for (const auto& [code, text] : {std::pair("ES", "Abrir..."),
                                     {"FR", "Ouvre..."},
                                     {"IT", "Apri..."},
                                     {"DE", "Öffnen..."},
                                     {"PT", "Abrir..."},
                                     {"EN", "Open..."}}) {
        Language = code;
        EXPECT_EQ(localised("frmMedia.imgOpen"), text);
    }
}

TEST_F(TextsLocalised, AnyOtherCodeIsEnglish)
{
    for (const char* code : {"", "XX", "es", "Es", "ES ", " ES", "E", "ESP", "DE_DE", "\xFF"}) {
        Language = code;
        EXPECT_EQ(localised("frmMedia.imgHelp"), "Help") << code;
        EXPECT_EQ(localisedIn("frmMedia.imgHelp", code), "Help") << code;
    }
    EXPECT_EQ(localisedIn("frmMedia.imgHelp", std::string_view("ES\0", 3)), "Help");
}

TEST_F(TextsLocalised, AKeyWithoutARowIsAMistake)
{
    for (const char* key : {"", "frmMedia", "frmMedia.imghelp", "frmMedia.imgHelp ", "frmMedia.imgTwitter"}) {
        EXPECT_THROW(localised(key), std::logic_error) << key;
        EXPECT_THROW(localisedIn(key, "DE"), std::logic_error) << key;
    }
}

TEST_F(TextsLocalised, EveryKeyHasItsTextInEveryLanguage)
{
    for (const TextRow& one : textTable())
        for (std::size_t column = 0; column < kTextLanguages.size(); ++column) {
            Language = kTextLanguages[column];
            EXPECT_EQ(localised(one.key), one.texts[column]) << one.key;
        }
}

} // namespace tandrel::test
