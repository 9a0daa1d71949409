// SPDX-License-Identifier: AGPL-3.0-or-later
#include "CurlLibrary.h"

#include <optional>

#include <dlfcn.h>

namespace mk::pluginCore::curl
{
namespace
{
constexpr const char* fileNames[] { "libcurl.so.4", "libcurl-gnutls.so.4" };
constexpr long initEverything = 3;

template <typename Function>
[[nodiscard]] bool find (void* library, const char* name, Function& function)
{
    function = reinterpret_cast<Function> (dlsym (library, name));
    return function != nullptr;
}

[[nodiscard]] std::optional<Library> load()
{
    void* handle = nullptr;

    for (const auto* fileName : fileNames)
        if (handle == nullptr)
            handle = dlopen (fileName, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);

    if (handle == nullptr)
        return std::nullopt;

    Library library;
    const auto isComplete = find (handle, "curl_global_init", library.init)
                            && find (handle, "curl_easy_init", library.easyInit)
                            && find (handle, "curl_easy_setopt", library.easySetOption)
                            && find (handle, "curl_easy_getinfo", library.easyGetInfo)
                            && find (handle, "curl_easy_cleanup", library.easyCleanup)
                            && find (handle, "curl_multi_init", library.multiInit)
                            && find (handle, "curl_multi_add_handle", library.multiAddHandle)
                            && find (handle, "curl_multi_remove_handle", library.multiRemoveHandle)
                            && find (handle, "curl_multi_perform", library.multiPerform)
                            && find (handle, "curl_multi_poll", library.multiPoll)
                            && find (handle, "curl_multi_info_read", library.multiInfoRead)
                            && find (handle, "curl_multi_cleanup", library.multiCleanup);

    if (! isComplete || library.init (initEverything) != resultOk)
        return std::nullopt;

    return library;
}
} // namespace

const Library* Library::get()
{
    static const auto library = load();
    return library.has_value() ? &*library : nullptr;
}

} // namespace mk::pluginCore::curl
