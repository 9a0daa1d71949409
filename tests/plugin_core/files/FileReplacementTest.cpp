// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/files/FileReplacement.h"

#include "tests/support/FailingDisk.h"


#include <gtest/gtest.h>

#if JUCE_LINUX
    #include <csignal>
    #include <sys/resource.h>
#endif

namespace mk::pluginCore
{
namespace
{
/** The folder's files, temporary ones included. */
[[nodiscard]] int countFiles (const juce::File& folder)
{
    return folder.getNumberOfChildFiles (juce::File::findFilesAndDirectories);
}

const auto longText = juce::String::repeatedString ("0123456789abcdef", 16384);
} // namespace

TEST (FileReplacement, WritesTheTextAndCreatesItsParentFolders)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a/b/c.txt");
    const juce::String text (juce::CharPointer_UTF8 ("caf\xc3\xa9\r\nline two"));

    EXPECT_TRUE (replaceFileContent (file, text));
    EXPECT_EQ (file.loadFileAsString(), text);
}

TEST (FileReplacement, LeavesNothingOfALongerFormerContent)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.txt");

    ASSERT_TRUE (replaceFileContent (file, longText));
    EXPECT_EQ (file.getSize(), longText.length());
    ASSERT_TRUE (replaceFileContent (file, "short"));
    EXPECT_EQ (file.loadFileAsString(), "short");
    ASSERT_TRUE (replaceFileContent (file, {}));
    EXPECT_EQ (file.getSize(), 0);
    EXPECT_EQ (countFiles (folder.get()), 1);
}

TEST (FileReplacement, RefusesAFolderInTheFilesPlace)
{
    const orlo::test::TemporaryFolder folder;
    EXPECT_FALSE (replaceFileContent (folder.get(), "text"));
    EXPECT_TRUE (folder.get().isDirectory());
    EXPECT_FALSE (replaceFileContent ({}, "text"));
}

TEST (FileReplacement, RefusesAFileInTheFoldersPlace)
{
    const orlo::test::TemporaryFolder folder;
    ASSERT_TRUE (folder.get().getChildFile ("a").replaceWithText ("in the way"));
    EXPECT_FALSE (replaceFileContent (folder.get().getChildFile ("a/b.txt"), "text"));
}

#if JUCE_LINUX

TEST (FileReplacement, KeepsTheFormerContentIfTheDiskFillsUpInTheMiddleOfTheText)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.txt");
    ASSERT_TRUE (replaceFileContent (file, "former"));

    {
        const orlo::test::FileSizeLimit limit (1000);
        EXPECT_FALSE (replaceFileContent (file, longText));
    }

    EXPECT_EQ (file.loadFileAsString(), "former");
    EXPECT_EQ (countFiles (folder.get()), 1);
}

TEST (FileReplacement, KeepsTheFormerContentOnARealDiskThatIsFull)
{
    const orlo::test::SmallDisk disk (64);

    if (! disk.isMounted())
        GTEST_SKIP() << "needs the right to mount";

    const auto file = disk.getFolder().getChildFile ("a.txt");
    ASSERT_TRUE (replaceFileContent (file, "former"));
    EXPECT_FALSE (replaceFileContent (file, longText));
    EXPECT_EQ (file.loadFileAsString(), "former");
    EXPECT_EQ (countFiles (disk.getFolder()), 1);
}

TEST (FileReplacement, KeepsTheFormerContentInAFolderThatIsReadOnly)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.txt");
    ASSERT_TRUE (replaceFileContent (file, "former"));

    {
        const orlo::test::ReadOnlyFolder readOnly (folder.get());
        EXPECT_FALSE (replaceFileContent (file, "latter"));
    }

    EXPECT_EQ (file.loadFileAsString(), "former");
}

TEST (FileReplacement, KeepsTheFormerContentIfTheProcessIsKilledWhileItWrites)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.txt");
    ASSERT_TRUE (replaceFileContent (file, "former"));

    const auto writeTooMuch = [&file]
    {
        // Without a handler the signal ends the process within the write.
        const rlimit limit { 0, 0 };
        setrlimit (RLIMIT_FSIZE, &limit);
        replaceFileContent (file, longText);
    };

    EXPECT_EXIT ((writeTooMuch(), std::_Exit (0)), testing::KilledBySignal (SIGXFSZ), "");
    EXPECT_EQ (file.loadFileAsString(), "former");
}

TEST (FileReplacement, SaysThatTheDiskIsFull)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.txt");
    ASSERT_TRUE (replaceFileContent (file, "former"));

    {
        const orlo::test::FileSizeLimit limit (1000);
        const auto result = replaceFileInPieces (file,
                                                 [] (juce::OutputStream& stream)
                                                 {
                                                     stream << longText;
                                                     return juce::Result::ok();
                                                 });
        EXPECT_TRUE (result.getErrorMessage().isNotEmpty());
    }

    EXPECT_EQ (file.loadFileAsString(), "former");
    EXPECT_EQ (countFiles (folder.get()), 1);
}

#endif

//==============================================================================
[[nodiscard]] juce::Result writePieces (juce::OutputStream& stream)
{
    stream << "0123456789";
    EXPECT_TRUE (stream.setPosition (2));
    stream << "ab";
    EXPECT_TRUE (stream.setPosition (10));
    stream << "!";
    return juce::Result::ok();
}

TEST (FileReplacement, TakesContentInPiecesAndOutOfOrder)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("new/a.txt");
    ASSERT_TRUE (replaceFileInPieces (file, writePieces).wasOk());
    EXPECT_EQ (file.loadFileAsString(), "01ab456789!");
    EXPECT_EQ (countFiles (file.getParentDirectory()), 1);
}

TEST (FileReplacement, SaysWhyAndKeepsTheFormerContentIfTheContentCannotBeMade)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.txt");
    ASSERT_TRUE (replaceFileContent (file, "former"));

    const auto result = replaceFileInPieces (file,
                                             [] (juce::OutputStream& stream)
                                             {
                                                 stream << "half";
                                                 return juce::Result::fail ("no more");
                                             });
    EXPECT_EQ (result.getErrorMessage(), "no more");
    EXPECT_EQ (file.loadFileAsString(), "former");
    EXPECT_EQ (countFiles (folder.get()), 1);

    const auto writeAndThrow = [] (juce::OutputStream& stream) -> juce::Result
    {
        stream << "half";
        throw std::bad_alloc();
    };
    EXPECT_THROW (std::ignore = replaceFileInPieces (file, writeAndThrow), std::bad_alloc);
    EXPECT_EQ (file.loadFileAsString(), "former");
    EXPECT_EQ (countFiles (folder.get()), 1);
}

TEST (FileReplacement, SaysWhyAFileCannotBeWritten)
{
    const orlo::test::TemporaryFolder folder;
    EXPECT_TRUE (replaceFileInPieces (folder.get(), writePieces).getErrorMessage().isNotEmpty());

    const auto file = folder.get().getChildFile ("a.txt");
    ASSERT_TRUE (replaceFileContent (file, "former"));
    EXPECT_TRUE (replaceFileInPieces (file.getChildFile ("b.txt"), writePieces).failed());
}

} // namespace mk::pluginCore
