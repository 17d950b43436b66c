// The dialog of recent files.

#include "texts/localised_tables.h"

namespace tandrel
{

namespace
{

constexpr TextRow kRows[] = {
    {"frmPrev.caption",
     {
         "Tandrel Player - Open Multimedia ...",
         "Tandrel Player - Abrir multimedia ...",
         "Tandrel Player - Ouvrir multimédia ...",
         "Tandrel Player - Apri multimedia ...",
         "Tandrel Player - Multimedia öffnen ...",
         "Tandrel Player - Abrir multimédia ...",
     }},
    {"frmPrev.lblFiles",
     {
         "Media Files",
         "Files multimedia",
         "Files multimédia",
         "File multimediali",
         "Media Files",
         "Files multimédia",
     }},
    {"frmPrev.lblMKV",
     {
         "MKV HD",
         "MKV HD",
         "MKV HD",
         "MKV HD",
         "MKV HD",
         "MKV HD",
     }},
    {"frmPrev.lblDisk",
     {
         "Disk",
         "Disco",
         "Disque",
         "Disco",
         "Disc",
         "Disco",
     }},
    {"frmPrev.fraPrev",
     {
         " Recent Files ",
         " Files recientes ",
         " Files récents ",
         " File recenti ",
         " Aktuelle Files ",
         " Files recentes ",
     }},
    {"frmPrev.lblTool",
     {
         "Ctrl+Click to Select Multiple Files or DblClick to Open a Single File",
         "Ctrl+clic para seleccionar varios Files o doble clic para abrir uno solo",
         "Ctrl+clic pour sélectionner plusieurs Files ou double-clic pour en ouvrir un seul",
         "Ctrl+clic per selezionare più File o doppio clic per aprirne uno solo",
         "Strg+Klick wählt mehrere Files aus, Doppelklick öffnet ein einzelnes",
         "Ctrl+clique para selecionar vários Files ou duplo clique para abrir um só",
     }},
    {"frmPrev.none",
     {
         "Nothing opened yet.",
         "Aún no se ha abierto nada.",
         "Rien d'ouvert pour l'instant.",
         "Ancora nessun File aperto.",
         "Noch nichts geöffnet.",
         "Ainda nada foi aberto.",
     }},
    {"frmPrev.cmdOK",
     {
         "Open &Selected Files",
         "Abrir Files &seleccionados",
         "Ouvrir les Files &sélectionnés",
         "Apri File &selezionati",
         "Au&sgewählte Files öffnen",
         "Abrir Files &selecionados",
     }},
    {"frmPrev.cmdRecent",
     {
         "Clear &Recent",
         "Borrar &recientes",
         "Effacer les &récents",
         "Svuota &recenti",
         "&Liste leeren",
         "Limpar &recentes",
     }},
    {"frmPrev.cmdCancel",
     {
         "&Cancel",
         "&Cancelar",
         "&Annuler",
         "&Annulla",
         "A&bbrechen",
         "&Cancelar",
     }},
};

} // namespace

std::span<const TextRow> recentTexts() { return kRows; }

} // namespace tandrel
