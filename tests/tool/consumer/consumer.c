/* Loads the plug-in; an unknown selector is answered with kVelaUnknownSelector. */
#include <vela_fcpxml/plugin.h>

#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

int main(void)
{
    void* const library = dlopen(PLUGIN, RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    void* const symbol = dlsym(library, "xProjectConverterEntry");
    VelaEntryFunction entry = NULL;
    memcpy(&entry, &symbol, sizeof(entry));
    return entry && entry(99, NULL) == kVelaUnknownSelector ? 0 : 1;
}
