/// The dialog for files in the language in use.
#pragma once

#include "toolkit/backend.h"

namespace tandrel
{

FileDialogTexts localisedDialogTexts();

} // namespace tandrel
