#include "app/FontReading.h"

#ifdef TALLIX_FINDS_FONTS_WITH_FONTCONFIG

#include <system_error>

#include <fontconfig/fontconfig.h>

FontReading::FontReading() try : reading_(std::async(std::launch::async, [] { FcInit(); })) {
} catch (const std::system_error&) {
    // No thread is to be had. The toolkit reads the fonts when it needs them.
}

#else

FontReading::FontReading() = default;

#endif
