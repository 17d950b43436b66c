/// What libmpv needs of the process that it runs in, and what it is kept from doing to it.
#pragma once

namespace tandrel
{

/// To be called after the toolkit has set its own number format, before the first handle is made; again is harmless.
void prepareProcess();

} // namespace tandrel
