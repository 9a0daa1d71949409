// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Screen.h"

#include "WindowAtoms.h"

#include <dlfcn.h>

namespace mk::orlo::test
{
namespace
{
using OpenDisplay = void* (*) (const char*);
using InternAtom = unsigned long (*) (void*, const char*, int);
using Sync = int (*) (void*, int);
using DefaultRootWindow = unsigned long (*) (void*);
using WarpPointer = int (*) (void*, unsigned long, unsigned long, int, int, unsigned, unsigned, int, int);
using CreateWindow =
    unsigned long (*) (void*, unsigned long, int, int, unsigned, unsigned, unsigned, unsigned long, unsigned long);
using UseWindow = int (*) (void*, unsigned long);
using SetInputFocus = int (*) (void*, unsigned long, int, unsigned long);
using FakeButton = int (*) (void*, unsigned, int, unsigned long);
using FakeKey = int (*) (void*, unsigned, int, unsigned long);
using KeysymToKeycode = unsigned char (*) (void*, unsigned long);

template <typename Function>
[[nodiscard]] Function find (void* library, const char* name)
{
    return reinterpret_cast<Function> (dlsym (library, name));
}
} // namespace

Screen& Screen::getInstance()
{
    static Screen screen;
    return screen;
}

Screen::Screen()
{
    library = dlopen ("libX11.so.6", RTLD_NOW);
    testLibrary = dlopen ("libXtst.so.6", RTLD_NOW);

    if (library == nullptr || testLibrary == nullptr)
        return;

    connection = find<OpenDisplay> (library, "XOpenDisplay") (nullptr);

    if (connection == nullptr)
        return;

    for (const auto* const name : windowAtoms)
        find<InternAtom> (library, "XInternAtom") (connection, name, 0);

    find<Sync> (library, "XSync") (connection, 0);
}

void Screen::moveMouseTo (juce::Point<int> position)
{
    const auto root = find<DefaultRootWindow> (library, "XDefaultRootWindow") (connection);
    find<WarpPointer> (library, "XWarpPointer") (connection, 0, root, 0, 0, 0, 0, position.x, position.y);
    find<Sync> (library, "XSync") (connection, 0);
}

void* Screen::createHostWindow (int width, int height)
{
    const auto root = find<DefaultRootWindow> (library, "XDefaultRootWindow") (connection);
    const auto window = find<CreateWindow> (library, "XCreateSimpleWindow") (
        connection, root, 0, 0, unsigned (width), unsigned (height), 0, 0, 0);
    auto* const handle = reinterpret_cast<void*> (window);
    setMapped (handle, true);
    return handle;
}

void Screen::setMapped (void* hostWindow, bool shouldBeMapped)
{
    const auto* const name = shouldBeMapped ? "XMapWindow" : "XUnmapWindow";
    find<UseWindow> (library, name) (connection, reinterpret_cast<unsigned long> (hostWindow));
    find<Sync> (library, "XSync") (connection, 0);
}

void Screen::destroyHostWindow (void* hostWindow)
{
    find<UseWindow> (library, "XDestroyWindow") (connection, reinterpret_cast<unsigned long> (hostWindow));
    find<Sync> (library, "XSync") (connection, 0);
}

void Screen::giveKeyboardTo (void* hostWindow)
{
    const auto window = reinterpret_cast<unsigned long> (hostWindow);
    find<SetInputFocus> (library, "XSetInputFocus") (connection, window, 0, 0);
    find<Sync> (library, "XSync") (connection, 0);
}

void Screen::setButton (int button, bool isDown)
{
    find<FakeButton> (testLibrary, "XTestFakeButtonEvent") (connection, unsigned (button), isDown ? 1 : 0, 0);
    find<Sync> (library, "XSync") (connection, 0);
}

void Screen::setKey (unsigned long symbol, bool isDown)
{
    const auto code = find<KeysymToKeycode> (library, "XKeysymToKeycode") (connection, symbol);
    find<FakeKey> (testLibrary, "XTestFakeKeyEvent") (connection, code, isDown ? 1 : 0, 0);
    find<Sync> (library, "XSync") (connection, 0);
}

} // namespace mk::orlo::test
