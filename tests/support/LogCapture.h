// Captures the Android log records that the library writes, until destruction, when
// liblog's host logger comes back. Each record notes how many bytes standard error held
// when it was written, so that a test that also captures standard error (GoogleTest's
// testing::internal::CaptureStderr) can tell which sink received a message first.
#ifndef TESSEL_RVA_TESTS_LOG_CAPTURE_H
#define TESSEL_RVA_TESTS_LOG_CAPTURE_H

#include <android/log.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

namespace rvatest {

struct AndroidRecord {
    int priority;
    std::string tag;
    std::string message;
    long stderrBytesBefore;  // standard-error size when the record was written
};

class AndroidLogCapture {
public:
    AndroidLogCapture() {
        all().clear();
        __android_log_set_logger([](const __android_logger_data* data, const char* message) {
            std::fflush(stderr);
            all().push_back({data->priority, data->tag ? data->tag : "", message, lseek(STDERR_FILENO, 0, SEEK_CUR)});
        });
    }
    ~AndroidLogCapture() { __android_log_set_logger(__android_log_stderr_logger); }
    static std::vector<AndroidRecord>& all() {
        static std::vector<AndroidRecord> records;
        return records;
    }
};

}  // namespace rvatest

#endif  // TESSEL_RVA_TESTS_LOG_CAPTURE_H
