// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

/** The functions and constants of libcurl that are used here. It is loaded at the first request and not
    linked, so that a system without it can load the plug-in. Linux only. */
namespace mk::pluginCore::curl
{

using Easy = void;  /**< CURL */
using Multi = void; /**< CURLM */

/** CURLMsg */
struct Message
{
    int kind;
    Easy* easy;

    union
    {
        void* pointer;
        int result;
    } data;
};

namespace option
{
inline constexpr int noProgressMeter = 43;
inline constexpr int noSignal = 99;
inline constexpr int timeoutMs = 155;
inline constexpr int protocols = 181;
inline constexpr int quickExit = 322;
inline constexpr int writeData = 10001;
inline constexpr int url = 10002;
inline constexpr int userAgent = 10018;
inline constexpr int headerData = 10029;
inline constexpr int writeFunction = 20011;
inline constexpr int headerFunction = 20079;
} // namespace option

inline constexpr long protocolHttp = 1;
inline constexpr long protocolHttps = 2;
inline constexpr int infoResponseCode = 0x200000 + 2;
inline constexpr int infoRedirectUrl = 0x100000 + 31;
inline constexpr int messageDone = 1;
inline constexpr int resultOk = 0;
inline constexpr int resultWriteError = 23;

struct Library
{
    /** Null if the system has no libcurl, or one that is too old. [any thread] The first call loads it, which
        takes some milliseconds. It is never unloaded: while a name server does not answer, one of its threads
        can outlive all objects here. */
    [[nodiscard]] static const Library* get();

    using Init = int (*) (long);
    using EasyInit = Easy* (*) ();
    using EasySetOption = int (*) (Easy*, int, ...);
    using EasyGetInfo = int (*) (Easy*, int, ...);
    using EasyCleanup = void (*) (Easy*);
    using MultiInit = Multi* (*) ();
    using MultiHandle = int (*) (Multi*, Easy*);
    using MultiPerform = int (*) (Multi*, int*);
    using MultiPoll = int (*) (Multi*, void*, unsigned int, int, int*);
    using MultiInfoRead = Message* (*) (Multi*, int*);
    using MultiCleanup = int (*) (Multi*);

    Init init = nullptr;
    EasyInit easyInit = nullptr;
    EasySetOption easySetOption = nullptr;
    EasyGetInfo easyGetInfo = nullptr;
    EasyCleanup easyCleanup = nullptr;
    MultiInit multiInit = nullptr;
    MultiHandle multiAddHandle = nullptr;
    MultiHandle multiRemoveHandle = nullptr;
    MultiPerform multiPerform = nullptr;
    MultiPoll multiPoll = nullptr;
    MultiInfoRead multiInfoRead = nullptr;
    MultiCleanup multiCleanup = nullptr;
};

} // namespace mk::pluginCore::curl
