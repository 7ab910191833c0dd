// Loads the library with dlopen(), uses it, closes it with dlclose() and checks that it is
// no longer mapped: a process that loads the library as a plugin can unload it again.
// Linked without the library, which it takes as its argument.
#include <dlfcn.h>

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <path of librvacommon.so>\n", argv[0]);
        return 2;
    }
    void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        std::fprintf(stderr, "dlopen: %s\n", dlerror());
        return 1;
    }
    // tessel::rva::Utils::isValidSocketPort(int), a plain function of the library.
    typedef bool (*PortTest)(int);
    const PortTest isValidSocketPort =
        reinterpret_cast<PortTest>(dlsym(library, "_ZN6tessel3rva5Utils17isValidSocketPortEi"));
    if (isValidSocketPort == nullptr || !isValidSocketPort(50000) || isValidSocketPort(80)) {
        std::fprintf(stderr, "the library's isValidSocketPort is missing or wrong\n");
        return 1;
    }
    if (dlclose(library) != 0) {
        std::fprintf(stderr, "dlclose: %s\n", dlerror());
        return 1;
    }
    if (dlopen(argv[1], RTLD_NOW | RTLD_NOLOAD) != nullptr) {
        std::fprintf(stderr, "%s is still loaded after dlclose()\n", argv[1]);
        return 1;
    }
    std::printf("unloaded\n");
    return 0;
}
