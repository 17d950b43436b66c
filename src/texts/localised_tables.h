/// The rows of the text table by theme.
#pragma once

#include "texts/localised.h"

namespace tandrel
{

std::span<const TextRow> consoleTexts();
std::span<const TextRow> dialogTexts();
std::span<const TextRow> fullScreenTexts();
std::span<const TextRow> helpTexts();
std::span<const TextRow> keyTexts();
std::span<const TextRow> messageTexts();
std::span<const TextRow> pictureTexts();
std::span<const TextRow> recentTexts();
std::span<const TextRow> windowTexts();

} // namespace tandrel
