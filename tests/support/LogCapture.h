// Test helpers that capture what the library logs: standard-error text and Android log
// records. Each Android record notes how many bytes standard error held when it was
// written, so a test can tell which sink received a message first.
#ifndef TESSEL_RVA_TESTS_LOG_CAPTURE_H
#define TESSEL_RVA_TESTS_LOG_CAPTURE_H

#include <android/log.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace rvatest {

// Redirects standard error to a temporary file for its lifetime.
class StderrCapture {
public:
    StderrCapture() {
        std::fflush(stderr);
        mSaved = dup(STDERR_FILENO);
        mFile = std::tmpfile();
        dup2(fileno(mFile), STDERR_FILENO);
    }
    StderrCapture(const StderrCapture&) = delete;
    StderrCapture& operator=(const StderrCapture&) = delete;
    ~StderrCapture() {
        restore();
        std::fclose(mFile);
    }

    // Bytes written to standard error so far.
    static long written() {
        std::fflush(stderr);
        struct stat info;
        return fstat(STDERR_FILENO, &info) == 0 ? static_cast<long>(info.st_size) : -1;
    }

    // Everything written since construction; stops the capture.
    std::string text() {
        restore();
        std::string captured;
        std::rewind(mFile);
        char buffer[4096];
        size_t count;
        while ((count = std::fread(buffer, 1, sizeof buffer, mFile)) > 0) {
            captured.append(buffer, count);
        }
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

    int mSaved = -1;
    std::FILE* mFile = nullptr;
};

struct AndroidRecord {
    int priority;
    std::string tag;
    std::string message;
    long stderrBytesBefore;  // standard-error size when the record was written
};

// Installs a liblog logger that keeps every record; restores liblog's host logger after.
class AndroidLogCapture {
public:
    AndroidLogCapture() {
        records().clear();
        __android_log_set_logger(&AndroidLogCapture::keep);
    }
    AndroidLogCapture(const AndroidLogCapture&) = delete;
    AndroidLogCapture& operator=(const AndroidLogCapture&) = delete;
    ~AndroidLogCapture() { __android_log_set_logger(__android_log_stderr_logger); }

    const std::vector<AndroidRecord>& all() const { return records(); }

private:
    static std::vector<AndroidRecord>& records() {
        static std::vector<AndroidRecord> kept;
        return kept;
    }
    static void keep(const struct __android_logger_data* data, const char* message) {
        records().push_back({data->priority, data->tag ? data->tag : "", message, StderrCapture::written()});
    }
};

}  // namespace rvatest

#endif  // TESSEL_RVA_TESTS_LOG_CAPTURE_H
