/// What the toolkit draws around the controls of a form.
#pragma once

#include "toolkit/form.h"

#include <QMargins>
#include <QRect>

class QPainter;

namespace tandrel
{

/// Pixels that the frame of a form takes at each side, before the place of its controls begins.
QMargins frameMargins(const Form& form);

/// Height of the caption band in pixels, 0 where the form shows none.
int captionBand(const Form& form);

/// `area` is the whole window; `selected` marks the active form.
void paintFrame(QPainter& painter, const Form& form, const QRect& area, bool selected);

/// The best rendering of a byte string: invalid bytes become replacement characters, line ends blanks, and mapped marks
/// the characters that they stand for.
QString rendered(const Text& bytes);

} // namespace tandrel
