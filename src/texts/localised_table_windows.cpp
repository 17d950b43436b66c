// Buttons of boxes and windows, the list of keys in the help window, and what the console says of all its videos.

#include "texts/localised_tables.h"

namespace tandrel
{

namespace
{

constexpr TextRow kRows[] = {
    {"frmMedia.imgShare",
     {
         "Share",
         "Compartir",
         "Partager",
         "Condividi",
         "Teilen",
         "Compartilhar",
     }},
    {"frmMedia.lblGroup",
     {
         "All videos",
         "Todos los vídeos",
         "Toutes les vidéos",
         "Tutti i video",
         "Alle Videos",
         "Todos os vídeos",
     }},
    {"frmHelp.caption",
     {
         "Help Control Panel - ",
         "Ayuda del Panel de control - ",
         "Aide du Panneau de contrôle - ",
         "Aiuto del Pannello di Controllo - ",
         "Hilfe zum Control Panel - ",
         "Ajuda do Painel de Controle - ",
     }},
    {"frmHelp.keysTitle",
     {
         "Keys that work in every program",
         "Teclas que funcionan en todos los programas",
         "Touches qui fonctionnent dans tous les programmes",
         "Tasti che funzionano in ogni programma",
         "Tasten, die in jedem Programm wirken",
         "Teclas que funcionam em todos os programas",
     }},
    {"frmHelp.keySizeUp",
     {
         "Larger picture",
         "Imagen más grande",
         "Image plus grande",
         "Immagine più grande",
         "Größeres Bild",
         "Imagem maior",
     }},
    {"frmHelp.keySizeDown",
     {
         "Smaller picture",
         "Imagen más pequeña",
         "Image plus petite",
         "Immagine più piccola",
         "Kleineres Bild",
         "Imagem menor",
     }},
    {"frmHelp.keyContinue",
     {
         "Continue playing",
         "Continuar la reproducción",
         "Reprendre la lecture",
         "Continua la riproduzione",
         "Wiedergabe fortsetzen",
         "Continuar a reprodução",
     }},
    {"frmHelp.keyPlayPause",
     {
         "Play or pause",
         "Reproducir o pausar",
         "Lecture ou pause",
         "Riproduci o metti in pausa",
         "Wiedergabe oder Pause",
         "Reproduzir ou pausar",
     }},
    {"frmHelp.keyStop",
     {
         "Stop",
         "Detener",
         "Arrêter",
         "Ferma",
         "Anhalten",
         "Parar",
     }},
    {"frmHelp.keyQuieter",
     {
         "Quieter",
         "Bajar el volumen",
         "Moins fort",
         "Abbassa il volume",
         "Leiser",
         "Diminuir o volume",
     }},
    {"frmHelp.keyLouder",
     {
         "Louder",
         "Subir el volumen",
         "Plus fort",
         "Alza il volume",
         "Lauter",
         "Aumentar o volume",
     }},
    {"frmHelp.keyTaken",
     {
         "used by another program",
         "usada por otro programa",
         "utilisée par un autre programme",
         "in uso da un altro programma",
         "von einem anderen Programm belegt",
         "usada por outro programa",
     }},
    {"box.yes",
     {
         "&Yes",
         "&Sí",
         "&Oui",
         "&Sì",
         "&Ja",
         "&Sim",
     }},
    {"box.no",
     {
         "&No",
         "&No",
         "&Non",
         "&No",
         "&Nein",
         "&Não",
     }},
    {"box.ok",
     {
         "&OK",
         "&Aceptar",
         "&OK",
         "&OK",
         "&OK",
         "&OK",
     }},
    {"system.minimise",
     {
         "Minimize",
         "Minimizar",
         "Réduire",
         "Riduci a icona",
         "Minimieren",
         "Minimizar",
     }},
    {"system.close",
     {
         "Close",
         "Cerrar",
         "Fermer",
         "Chiudi",
         "Schließen",
         "Fechar",
     }},
};

} // namespace

std::span<const TextRow> windowTexts() { return kRows; }

} // namespace tandrel
