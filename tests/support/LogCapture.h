// Captures the Android log records that the library writes, until destruction, when
// liblog's host logger comes back. Each record notes how many bytes standard error held
// when it was written, so that a test that also captures standard error (GoogleTest's
// testing::internal::CaptureStderr) can tell which sink received a message first.
#pragma once

#include <android/log.h>
#include <unistd.h>

#include <cstdio>
#include <string>

namespace rvatest {

struct AndroidLogCapture {
    AndroidLogCapture() {
        text.clear();
        __android_log_set_logger([](const __android_logger_data* data, const char* message) {
            std::fflush(stderr);
            text += std::to_string(data->priority) + " " + (data->tag != nullptr ? data->tag : "") + ": " + message +
                    " @" + std::to_string(lseek(STDERR_FILENO, 0, SEEK_CUR)) + "\n";
        });
    }
    ~AndroidLogCapture() { __android_log_set_logger(__android_log_stderr_logger); }
    // Each record as "<priority> <tag>: <message> @<bytes that standard error held before it>\n".
    static inline std::string text;
};

}  // namespace rvatest
