/// The colours of the whole program, in one place: the console's body, glass, light, and what each kind of action
/// wears.
#pragma once

#include <QColor>

namespace tandrel::palette
{

inline const QColor kBase(14, 45, 81);
inline const QColor kBodyTop(0x1B, 0x4A, 0x80);
inline const QColor kBodyBottom(0x0B, 0x23, 0x42);
inline const QColor kEdgeLight(0x7F, 0xB6, 0xEA, 89);
inline const QColor kRim(0x5E, 0x9A, 0xD6);
inline const QColor kGlassTop(0x06, 0x11, 0x1F);
inline const QColor kGlassBottom(0x0A, 0x1E, 0x36);
inline const QColor kText(0xE8, 0xF1, 0xFB);
inline const QColor kQuietText(0x8F, 0xA9, 0xC6);
inline const QColor kMoves(0x37, 0xC8, 0xF5);
inline const QColor kMovesDeep(0x0F, 0x8F, 0xC4);
inline const QColor kGroup(0xFF, 0xB4, 0x54);
inline const QColor kLeaves(0xFF, 0x5C, 0x6C);
inline const QColor kBandTop(0x0B, 0x23, 0x42);
inline const QColor kBandBottom(0x08, 0x1A, 0x30);
inline const QColor kWell(0x05, 0x10, 0x1E);
inline const QColor kVideoGround(0x05, 0x0C, 0x16);

} // namespace tandrel::palette
