#include "desktop/screen_saver.h"

#include "platform/services.h"

namespace tandrel
{

void ScreenSaverSwitch(bool on) { services().screenSaver->enable(on); }

} // namespace tandrel
