// Death-test expectation for the library's fatal paths: the process must end through
// abort() (SIGABRT), which is what keeps a crash report on a device, and print a line
// that matches `regex`. An exit() or any other signal fails the expectation.
//
//   EXPECT_ABORT(CodecConfig::checkCodecId(CodecIdAmr, CodecIdDtmf), "Expecting codec AMR");
#pragma once

#include <gtest/gtest.h>

#include <csignal>

#define EXPECT_ABORT(statement, regex) EXPECT_EXIT(statement, ::testing::KilledBySignal(SIGABRT), regex)
