// The lines of the help window. Runs of blanks line up what stands behind them.

#include "texts/localised_tables.h"

namespace tandrel
{

namespace
{

constexpr TextRow kRows[] = {
    {"frmHelp.Label1",
     {
         "Open Single or Multiple Video selections",
         "Abrir simple o múltiple de vídeo selecciones",
         "Ouvrir unique ou multiple Vidéo sélections",
         "Apre singolo o multiplo Video selezionabile",
         "Öffnen Einzel-oder Mehrfach-Video-Auswahl",
         "Abrir únicos ou múltiplos Vídeo selecionáveis",
     }},
    {"frmHelp.Label2",
     {
         "Play Video selected (L key in FS mode)",
         "Reproducir vídeo seleccionado (tecla L en el modo FS)",
         "Jouer la Vidéo sélectionnée (touche L en mode FS)",
         "Riproduce il Vídeo selezionato (tasto L in modalità FS)",
         "Wiedergabe Video ausgewählt (L-Taste in FS-Modus)",
         "Reproduz o Vídeo selecionado (botão L na modalidade FS)",
     }},
    {"frmHelp.Label3",
     {
         "Pause Video selected (P key in FS mode)",
         "Interrumpir Video seleccionado (tecla P en el modo FS)",
         "Pause de la Vidéo sélectionnée (touche P en mode FS)",
         "Pausa del Video selezionato (tasto P in modalità FS)",
         "Pause Video ausgewählt (P-Taste in FS-Modus)",
         "Quebrar o Vídeo selecionado (botão P na modalidade FS)",
     }},
    {"frmHelp.Label4",
     {
         "Show Help                 (FS = Fullscreen)",
         "Mostrar Ayuda                                        (FS = Pantalla Completa)",
         "Afficher l'aide                                        (FS = plein écran)",
         "Visualizza Aiuto                                       (FS = Schermo Pieno)",
         "Hilfe anzeigen                                         (FS = Vollbild)",
         "Mostrar Ajuda                                           (FS = Full Screen)",
     }},
    {"frmHelp.Label5",
     {
         "Hide All Videos displayed",
         "Ocultar todos Videos mostradas",
         "Masquer toutes les Vidéos affichées",
         "Nasconde tutti i Video visualizzati",
         "Alle ausblenden Videos angezeigt",
         "Ocultar todos os Vídeos visiveis",
     }},
    {"frmHelp.Label6",
     {
         "Exit from Tandrel Player",
         "Salir de Tandrel Player",
         "Sortir de Tandrel Player",
         "Esce da Tandrel Player",
         "Beenden von Tandrel Player",
         "Sair Tandrel Player",
     }},
    {"frmHelp.Label7",
     {
         "Forward Video selected (F key in FS mode)",
         "Avanzar Vídeo seleccionado (tecla F en el modo FS)",
         "Vers l'avant de la Vidéos sélectionnées (touche F en mode FS)",
         "Avvolge il Video selezionato (tasto F in modalità FS)",
         "Vorwärts Video ausgewählt (F-Taste in FS-Modus)",
         "Rodeia o Vídeo selecionado (botão F na modalidade FS)",
     }},
    {"frmHelp.Label8",
     {
         "Rewind Video selected (R key in FS mode)",
         "Rebobinado Vídeo seleccionado (tecla R en modo FS)",
         "Rembobiner de la Vidéos sélectionnées (touche R en mode FS)",
         "Riavvolge il Video selezionato (tasto R in modalità FS)",
         "Zurück Video ausgewählt (R-Taste in FS-Modus)",
         "Retrocede o Vídeo selecionado (botão R na modalidade FS)",
     }},
    {"frmHelp.Label9",
     {
         "1° Right-Mouse to Fullscreen Video selected",
         "1° Derecho del Mouse, Pantalla completa para Vídeo seleccionado",
         "1° Droite-Mouse pour plein écran de la Vidéo sélectionnée",
         "1° Destro del Mouse per Schermo Pieno del Video selezionato",
         "1° mit der Richtig Maustaste auf Vollbild-Video gewählt",
         "1° Botão direito do mouse para FullScreen do Vídeo selecionado",
     }},
    {"frmHelp.Label10",
     {
         "Left-Mouse to restore Video selected",
         "Izquierdo del Mouse para restaurar el vídeo seleccionado",
         "Gauche-Mouse pour rétablir la Vidéo sélectionnée",
         "Sinistro del Mouse per ripristinare il Video selezionato",
         "Verließ Maustaste für die Wiederherstellung ausgewählten Video",
         "Botão esquerdo do mouse para restaurar o Vídeo selecionado",
     }},
    {"frmHelp.Label11",
     {
         "Wheel-Mouse to resize Video selected",
         "Rueda del Mouse para cambiar el tamaño de vídeo seleccionado",
         "Molette-Mouse pour redimensionner vidéo sélectionnée",
         "Ruota del Mouse per ridimensionare il Video selezionato",
         "Steuerrad Maustaste, um die Größe des ausgewählten Videos",
         "Roda do mouse para redimensionar o Vídeo selecionado",
     }},
    {"frmHelp.Label12",
     {
         "2° Show Menu on Fullscreen mode",
         "2° Mostrar los menús en modo de pantalla completa",
         "2° le menu sur le mode plein écran",
         "2° Visualizza il Menu in modalità Schermo Pieno",
         "2° Anzeigen-Menü auf Vollbild-Modus",
         "2° Ver o menu em modo de FullScreen",
     }},
    {"frmHelp.Label13",
     {
         "Audio and Video settings available only with FFDSHOW codecs",
         "Audio y Video configuración disponible sólo con codec FFDShow",
         "Paramètres audio et vidéo disponibles avec les codec FFDShow",
         "Impostazioni Audio/Video disponibile solo con i codec FFDSHOW",
         "Audio-und Video-Einstellungen nur zur Verfügung, mit FFDShow-Codecs",
         "Configurações Áudio/Vídeo disponíveis apenas com o codec FFDShow",
     }},
    {"frmHelp.Label14",
     {
         "Pause && Mute all Video on the screen",
         "Interrumpir && Silenciar todo el Vídeo en la pantalla",
         "Pause && Muet tous le Vidéo sur l'écran",
         "Pausa && Ammutolisce tutti i Video sullo schermo",
         "Pause && Stumm Alle Video auf dem Bildschirm",
         "Quebrar && Silencia todos os Vídeos na tela",
     }},
    {"frmHelp.Label16",
     {
         "Tray icon for FFDSHOW Audio/Video settings ",
         "FFDShow tray icon para Audio/Video ajustes",
         "FFDShow icône pour Audio/Video paramètres",
         "Tray icon per le impostazioni Audio/Video di FFDSHOW",
         "FFDShow Tray-Icon für Audio/Video Einstellungen",
         "Tray icon para o Configurações Áudio/Vídeo de FFDShow",
     }},
    {"frmHelp.Label17",
     {
         "Reposition all Video on the screen",
         "Vuelva a colocar todo el Vídeo en la pantalla",
         "Repositionner tous les Vidéo sur l'écran",
         "Riposiziona tutti i Video sullo schermo",
         "Positionieren Sie alle Video auf dem Bildschirm",
         "Reposicionar todos os Vídeos na tela",
     }},
    {"frmHelp.cmdOK",
     {
         "&Close",
         "&Cerrar",
         "&Fermer",
         "&Chiudi",
         "&Schließen",
         "&Fechar",
     }},
};

} // namespace

std::span<const TextRow> helpTexts() { return kRows; }

} // namespace tandrel
