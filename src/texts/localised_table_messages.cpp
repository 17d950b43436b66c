// Messages, the tip of PlayList Mode, titles of dialogs and the list of recent files.

#include "texts/localised_tables.h"

namespace tandrel
{

namespace
{

constexpr TextRow kRows[] = {
    {"message.cannotPlay",
     {
         "Media File can't be played!",
         "El File no se puede jugar!",
         "Les File peuvent pas être lus!",
         "Il File non può essere avviato!",
         "Medien können nicht abgespielt werden!",
         "Arquivo de mídia não podem ser reproduzidos!",
     }},
    {"message.makePrimary",
     {
         "Make Tandrel Player as primary player?",
         "¿ Hacer Tandrel Player el reproductor primario?",
         "Faire Tandrel Player en tant que lecteur première?",
         "Fai di Tandrel Player il player principale?",
         "Machen Tandrel Player als primäre spieler?",
         "Faça Tandrel Player como reprodutor principal?",
     }},
    {"message.tooMany",
     {
         "Attention! Caught up the maximum number of Videos opened!",
         "Atención! Atrapados en el número máximo de Vídeos apertura!",
         "Attention! Pris par le nombre maximal de Vidéos ouvert!",
         "Attenzione! Raggiunto il numero massimo di Video aperti!",
         "ACHTUNG! Erreicht die maximale anzahl offener Videos!",
         "Atenção! Atingiu o número máximo de Vídeos aberto!",
     }},
    {"message.notForMultiple",
     {
         "Has been selected a file not avaiable for multiple selections",
         "Ha sido seleccionada el archivo no disponible para múltiples selecciones",
         "A été sélectionnée pour le fichier avaiable pas pour le múltiples sélections",
         "E' stato selezionato un file non disponibile per la selezione multipla",
         "Wurde ausgewählt, um Datei nicht lieferbar für mehrere auswahl",
         "Foi selecionado para arquivo não avaiable para múltiplos seleções",
     }},
    {"message.notForSelections",
     {
         "Has been selected a file not avaiable for selections",
         "Ha sido seleccionada el archivo no disponible para múltiples selecciones",
         "A été sélectionnée pour le fichier avaiable pas pour le múltiples sélections",
         "E' stato selezionato un file non disponibile per la selezione multipla",
         "Wurde ausgewählt, um Datei nicht lieferbar für mehrere auswahl",
         "Foi selecionado para arquivo não avaiable para múltiplos seleções",
     }},
    {"message.tipFullScreen",
     {
         "TIP: Mouse Right-Click on the Video to FULLSCREEN mode.",
         "CONSEJO: Clic-Derecho del Mouse en el Vídeo para activar el FULLSCREEN.",
         "CONSEIL: Clic-Droit sur la Vidéo pour le mode FULLSCREEN.",
         "CONSIGLIO: Click-Destro del Mouse sul Video per attivare la modalità FULLSCREEN.",
         "TIPP: Mit der rechten Maus-Klick auf Video für FULLSCREEN modus.",
         "DICA: Clique-direito do Mouse em Vídeo para ativar FULLSCREEN.",
     }},
    {"message.insertDisc",
     {
         "Insert a disk DVD-ROM.",
         "Inserte un disco DVD-ROM.",
         "Insérez un disque DVD-ROM.",
         "Inserire un disco DVD-ROM.",
         "Legen sie eine disc DVD-ROM.",
         "Insira um disco DVD-ROM.",
     }},
    {"frmToolTip.line1",
     {
         "Double-Click on Video to play it.",
         "Haga doble-clic en el Vídeo para reproducirlo.",
         "Double-Cliquez sur la Vidéo pour la lecture.",
         "Doppio-Click sul Video per avviarlo.",
         "Doppelklicken sie auf Video, um sie abzuspielen.",
         "Duplo-Clique no Vídeo para reproduzi-lo.",
     }},
    {"frmToolTip.line2",
     {
         "You can change the Video allignment by [Reposition Video] function.",
         "Puede cambiar la alineación de vídeo a través de la función [Reposición de Video].",
         "Vous pouvez modifier l'alignement de la vidéo via la fonction [Repositionner le Vidéo].",
         "Puoi cambiare l'allineamento dei Video tramite la funzione [Riposiziona Video].",
         "Sie können das Video allignment durch [Positionen Video]-funktion.",
         "Você pode alterar o alinhamento de vídeo através da função [Reposicionar Vídeo].",
     }},
    {"title.openMultiple",
     {
         "Open Multiple Video...",
         "Abrir Multiples Vídeo...",
         "Ouvre Multiples Vidéo...",
         "Aprire Video Multiplo...",
         "Öffnen Mehrere Video...",
         "Abrir Múltiplos Vídeo...",
     }},
    {"title.openMkv",
     {
         "Open MKV Video...",
         "Abrir MKV Video...",
         "Ouvre MKV Vidéo...",
         "Aprire MKV Video...",
         "Öffnen MKV Video...",
         "Abrir MKV Video...",
     }},
    {"title.openSubtitles",
     {
         "Open Subtitles File...",
         "Abrir Subtitles File...",
         "Ouvre Subtitles File...",
         "Apri Subtitles File...",
         "Öffnen Subtitles File...",
         "Abrir Subtitles File...",
     }},
    {"frmPrev.noFile",
     {
         "   No File selected.",
         "   No File seleccionados.",
         "   Aucun File sélectionné.",
         "   Nessun File selezionato.",
         "   Keine File ausgewählt.",
         "   Nenhum File selecionado.",
     }},
    {"frmPrev.deleteList",
     {
         "Delete the List?",
         "Limpiar la Lista?",
         "Effacer la Liste?",
         "Pulire la Lista?",
         "Löschen Sie die Liste?",
         "Limpar a Lista?",
     }},
};

} // namespace

std::span<const TextRow> messageTexts() { return kRows; }

} // namespace tandrel
