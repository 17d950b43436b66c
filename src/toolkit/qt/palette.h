/// The colours of the whole program, in one place: the console's body, glass, light, and what each kind of action
/// wears. The drawings of the skin are made of these and no others, so some are used by drawings alone.
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

// Plates under buttons, each from its top to its bottom; the dial and the tiles of the splash are of the same metal.
inline const QColor kPlate(0x20, 0x54, 0x8F);
inline const QColor kPlateDeep(0x12, 0x36, 0x60);
inline const QColor kPlateLead(0x2B, 0x6D, 0xB6);
inline const QColor kPlateLeadDeep(0x17, 0x45, 0x77);
inline const QColor kPlateLit(0x34, 0x7C, 0xCB);
inline const QColor kPlateLitDeep(0x1C, 0x52, 0x8D);
inline const QColor kPlatePressed(0x0F, 0x2E, 0x52);
inline const QColor kPlatePressedDeep(0x0C, 0x27, 0x47);
inline const QColor kPlateSocket(0x0A, 0x21, 0x3E);

// The play button, at rest, under the pointer and pressed, and the ink of its arrow.
inline const QColor kPlay(0x4A, 0xD6, 0xFF);
inline const QColor kPlayDeep(0x0C, 0x7F, 0xB2);
inline const QColor kPlayLit(0x7B, 0xE3, 0xFF);
inline const QColor kPlayLitDeep(0x14, 0x96, 0xCE);
inline const QColor kPlayPressed(0x1C, 0xA6, 0xD6);
inline const QColor kPlayPressedDeep(0x09, 0x68, 0x93);
inline const QColor kPlayRim(0xBF, 0xF0, 0xFF);
inline const QColor kInkOnPlay(0x04, 0x26, 0x3A);

// The light on the edge of what shines most.
inline const QColor kShine(0xF3, 0xFA, 0xFF);

} // namespace tandrel::palette
