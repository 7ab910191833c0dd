// Test helpers that capture what the library logs: standard-error text and Android log
// records. Each Android record notes how many bytes standard error held when it was
// written, so a test can tell which sink received a message first.
#ifndef TESSEL_RVA_TESTS_LOG_CAPTURE_H
#define TESSEL_RVA_TESTS_LOG_CAPTURE_H

#include <android/log.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

namespace rvatest {

// Redirects standard error to a temporary file until text() or destruction.
class StderrCapture {
public:
    StderrCapture() : mSaved((std::fflush(stderr), dup(STDERR_FILENO))), mFile(std::tmpfile()) {
        dup2(fileno(mFile), STDERR_FILENO);
    }
    ~StderrCapture() {
        restore();
        std::fclose(mFile);
    }

    // Bytes written to standard error so far.
    static long written() {
        struct stat info;
        return std::fflush(stderr) == 0 && fstat(STDERR_FILENO, &info) == 0 ? static_cast<long>(info.st_size) : -1;
    }

    // Everything written since construction; ends the capture.
    std::string text() {
        restore();
        struct stat info;
        std::string captured(fstat(fileno(mFile), &info) == 0 ? static_cast<size_t>(info.st_size) : 0, '\0');
        std::rewind(mFile);
        captured.resize(std::fread(&captured[0], 1, captured.size(), mFile));
        return captured;
    }

private:
    void restore() {
        if (mSaved >= 0) {
            std::fflush(stderr);
            dup2(mSaved, STDERR_FILENO);
            close(mSaved);
            mSaved = -1;
        }
    }

    int mSaved;
    std::FILE* mFile;
};

struct AndroidRecord {
    int priority;
    std::string tag;
    std::string message;
    long stderrBytesBefore;  // standard-error size when the record was written
};

// Keeps every Android log record until destruction, then restores liblog's host logger.
class AndroidLogCapture {
public:
    AndroidLogCapture() {
        all().clear();
        __android_log_set_logger([](const __android_logger_data* data, const char* message) {
            all().push_back({data->priority, data->tag ? data->tag : "", message, StderrCapture::written()});
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
