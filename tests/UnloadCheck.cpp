// Loads the library with dlopen(), uses it, closes it with dlclose() and checks that it is
// no longer mapped: a process that loads the library as a plugin can unload it again.
// Linked without the library, which it takes as its argument.
#include <dlfcn.h>

#include <cstdio>

int main(int argc, char** argv) {
    void* library = argc == 2 ? dlopen(argv[1], RTLD_NOW | RTLD_LOCAL) : nullptr;
    // tessel::rva::Utils::isValidSocketPort(int), a plain function of the library.
    typedef bool (*PortTest)(int);
    const PortTest isValidSocketPort =
        library ? reinterpret_cast<PortTest>(dlsym(library, "_ZN6tessel3rva5Utils17isValidSocketPortEi")) : nullptr;
    if (isValidSocketPort == nullptr || !isValidSocketPort(50000) || isValidSocketPort(80)) {
        std::fprintf(stderr, "usage: %s <librvacommon.so>: its isValidSocketPort is missing or wrong\n", argv[0]);
        return 1;
    }
    if (dlclose(library) != 0 || dlopen(argv[1], RTLD_NOW | RTLD_NOLOAD) != nullptr) {
        std::fprintf(stderr, "%s is still loaded after dlclose()\n", argv[1]);
        return 1;
    }
    std::printf("unloaded\n");
    return 0;
}
