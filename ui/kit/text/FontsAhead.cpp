#include "ui/kit/text/FontsAhead.h"

#include <fontconfig/fontconfig.h>

namespace kit {

FontsAhead::FontsAhead()
    : m_reading([] { FcInit(); })
{
}

} // namespace kit
