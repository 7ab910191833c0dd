#include "GenericLog.h"

#include <android/log.h>

namespace tessel {
namespace utilities {
namespace details {

void androidLogVPrint(int priority, const char* tag, const char* format, va_list args) {
    __android_log_vprint(priority, tag, format, args);
}

}  // namespace details
}  // namespace utilities
}  // namespace tessel
