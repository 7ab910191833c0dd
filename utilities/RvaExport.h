// Visibility of the library's public API.
//
// The library is built with hidden symbol visibility; every class, function and
// constant that callers may use is marked RVA_EXPORT so that it, and only it,
// appears in the dynamic symbol table of librvacommon.so.
#ifndef TESSEL_UTILITIES_RVA_EXPORT_H
#define TESSEL_UTILITIES_RVA_EXPORT_H

#if defined(__GNUC__) || defined(__clang__)
#define RVA_EXPORT __attribute__((visibility("default")))
#else
#define RVA_EXPORT
#endif

#endif  // TESSEL_UTILITIES_RVA_EXPORT_H
