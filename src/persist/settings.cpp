#include "persist/settings.h"

#include "platform/services.h"

namespace tandrel
{

Text getSetting(SettingKey key) { return services().settings->get(key.section, key.key); }

void saveSetting(SettingKey key, const Text& value) { services().settings->save(key.section, key.key, value); }

} // namespace tandrel
