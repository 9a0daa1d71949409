// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Screen.h"

#include "Bundle.h"

#include <X11/Xlib.h>
#include <dlfcn.h>

namespace mk::orlo::lifecycle
{
namespace
{
/** Calls one of Xlib's functions by its name. */
template <typename Function, typename... Arguments>
auto call (void* library, const char* name, Function*, Arguments... arguments)
{
    return reinterpret_cast<Function*> (dlsym (library, name)) (arguments...);
}

[[nodiscard]] void* loadXlib()
{
    auto* const library = dlopen ("libX11.so.6", RTLD_NOW | RTLD_LOCAL);
    require (library != nullptr, "cannot load Xlib");
    return library;
}

[[nodiscard]] void* openDisplay (void* library)
{
    auto* const display = call (library, "XOpenDisplay", decltype (&XOpenDisplay) {}, nullptr);
    require (display != nullptr, "there is no X server");
    return display;
}
} // namespace

Screen::Screen() : library (loadXlib()), display (openDisplay (library))
{
    // Without a window manager JUCE asks for atoms that do not exist, and by default Xlib ends the process at
    // any error. Hosts install a handler as well.
    call (
        library, "XSetErrorHandler", decltype (&XSetErrorHandler) {}, +[] (Display*, XErrorEvent*) { return 0; });
}

Screen::~Screen() { call (library, "XCloseDisplay", decltype (&XCloseDisplay) {}, static_cast<Display*> (display)); }

unsigned long Screen::createWindow()
{
    auto* const connection = static_cast<Display*> (display);
    const auto root = call (library, "XDefaultRootWindow", decltype (&XDefaultRootWindow) {}, connection);
    const auto window = call (library,
                              "XCreateSimpleWindow",
                              decltype (&XCreateSimpleWindow) {},
                              connection,
                              root,
                              0,
                              0,
                              1000u,
                              600u,
                              0u,
                              0ul,
                              0ul);
    call (library, "XMapWindow", decltype (&XMapWindow) {}, connection, window);
    call (library, "XSync", decltype (&XSync) {}, connection, False);
    return window;
}

void Screen::destroyWindow (unsigned long window)
{
    auto* const connection = static_cast<Display*> (display);
    call (library, "XDestroyWindow", decltype (&XDestroyWindow) {}, connection, window);
    call (library, "XSync", decltype (&XSync) {}, connection, False);
}

} // namespace mk::orlo::lifecycle
