// What is said of still pictures.

#include "texts/localised_tables.h"

namespace tandrel
{

namespace
{

constexpr TextRow kRows[] = {
    {"frmMedia.imgStill",
     {
         "Save Pictures",
         "Guardar imágenes",
         "Enregistrer des images",
         "Salva immagini",
         "Bilder speichern",
         "Guardar imagens",
     }},
    {"stillmenu.mnuStill",
     {
         "&Picture of this Video",
         "&Imagen de este vídeo",
         "&Image de cette vidéo",
         "&Immagine di questo video",
         "&Bild dieses Videos",
         "&Imagem deste vídeo",
     }},
    {"stillmenu.mnuStills",
     {
         "Pictures of &all Videos, and a Contact Sheet",
         "Imágenes de &todos los vídeos y hoja de contactos",
         "Images de &toutes les vidéos et planche-contact",
         "Immagini di &tutti i video e foglio provini",
         "Bilder &aller Videos und Kontaktbogen",
         "Imagens de &todos os vídeos e folha de contacto",
     }},
    {"note.picturesSaving",
     {
         "Saving pictures ...",
         "Guardando imágenes ...",
         "Enregistrement des images ...",
         "Salvataggio delle immagini ...",
         "Bilder werden gespeichert ...",
         "A guardar imagens ...",
     }},
    {"note.picturesSaved",
     {
         "saved in",
         "guardadas en",
         "enregistrées dans",
         "salvate in",
         "gespeichert in",
         "guardadas em",
     }},
    {"message.pictureFolder",
     {
         "The pictures can't be written to this folder.",
         "No se pueden escribir las imágenes en esta carpeta.",
         "Impossible d'écrire les images dans ce dossier.",
         "Impossibile scrivere le immagini in questa cartella.",
         "In diesen Ordner können keine Bilder geschrieben werden.",
         "Não é possível escrever as imagens nesta pasta.",
     }},
    {"message.pictureRoom",
     {
         "There is no room left on the disk. What was not complete has been taken away.",
         "No queda espacio en el disco. Lo incompleto se ha eliminado.",
         "Le disque est plein. Ce qui était incomplet a été retiré.",
         "Il disco è pieno. Ciò che era incompleto è stato rimosso.",
         "Auf der Platte ist kein Platz mehr. Unvollständiges wurde entfernt.",
         "Não há espaço no disco. O que estava incompleto foi removido.",
     }},
    {"message.pictureMissing",
     {
         "There is no picture of:",
         "No hay imagen de:",
         "Il n'y a pas d'image de :",
         "Nessuna immagine di:",
         "Es gibt kein Bild von:",
         "Não há imagem de:",
     }},
    {"message.pictureBusy",
     {
         "Pictures of earlier videos are still being read. Please try again later.",
         "Aún se leen imágenes de vídeos anteriores. Inténtelo más tarde.",
         "Des images de vidéos précédentes sont encore lues. Réessayez plus tard.",
         "Immagini di video precedenti sono ancora in lettura. Riprova più tardi.",
         "Bilder früherer Videos werden noch gelesen. Bitte später noch einmal.",
         "Imagens de vídeos anteriores ainda estão a ser lidas. Tente mais tarde.",
     }},
    {"message.pictureDisc",
     {
         "Pictures can be saved of files only, and not of a disc.",
         "Solo se guardan imágenes de archivos, no de un disco.",
         "Seules les images de fichiers sont enregistrées, pas celles d'un disque.",
         "Si salvano solo immagini di file, non di un disco.",
         "Nur von Dateien lassen sich Bilder speichern, nicht von einer DVD.",
         "Só é possível guardar imagens de ficheiros, não de um disco.",
     }},
    {"message.pictureNone",
     {
         "There is no video to take a picture of.",
         "No hay ningún vídeo del que guardar una imagen.",
         "Il n'y a aucune vidéo dont enregistrer une image.",
         "Non c'è alcun video di cui salvare un'immagine.",
         "Es gibt kein Video, von dem ein Bild gespeichert werden könnte.",
         "Não há nenhum vídeo do qual guardar uma imagem.",
     }},
};

} // namespace

std::span<const TextRow> pictureTexts() { return kRows; }

} // namespace tandrel
