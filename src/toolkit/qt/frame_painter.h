/// What the toolkit draws around the controls of a form.
#pragma once

#include "toolkit/form.h"

#include <QMargins>
#include <QRect>
#include <QRegion>

class QPainter;

namespace tandrel
{

/// Pixels that the frame of a form takes at each side, before the place of its controls begins.
QMargins frameMargins(const Form& form);

/// Height of the caption band in pixels, 0 where the form shows none.
int captionBand(const Form& form);

/// The button at the right end of a dialog's band.
bool hasCloseBox(const Form& form);
QRect closeBox(const QRect& area);
void paintCloseBox(QPainter& painter, const QRect& box, bool hovered, bool pressed);

/// The pixels of a body with rounded corners: where nothing blends windows, the rest would be black.
QRegion roundedRegion(const QRect& area);

/// A dialog's rounded body with its band and title, for windows that are no forms too.
void paintDialog(QPainter& painter, const QString& title, const QRect& area);
inline constexpr int kCaptionBand = 25;

/// `area` is the whole window; `selected` marks the active form.
void paintFrame(QPainter& painter, const Form& form, const QRect& area, bool selected);

/// What eyes see of a form's caption: one of a video holds a path, for handlers.
QString titleOf(const Form& form);

/// The best rendering of a byte string: invalid bytes become replacement characters, line ends blanks, and mapped marks
/// the characters that they stand for.
QString rendered(const Text& bytes);

/// The same without the marks of letters: "&&" is one "&", a single one is not seen.
QString withoutMnemonic(const Text& bytes);

/// With marks that nobody sees where a long word, such as a path, may be broken between lines: behind separators, and
/// every few characters where there is none for long.
QString breakable(const QString& shown);

/// For a tip whose long lines are broken.
QString wrappedTip(const QString& shown);

/// For a tip that shows just these characters, though they may look like markup.
QString plainTip(const QString& shown);

} // namespace tandrel
