// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-render/OutputFile.h"

#include "FileFolder.h"
#include "tools/orlo-render/RenderError.h"

#include <gmock/gmock.h>

namespace mk::orlo::test
{
namespace
{
using namespace render;
using testing::HasSubstr;

[[nodiscard]] std::string complaintAbout (const juce::File& target)
{
    try
    {
        const OutputFile file (target);
        return {};
    }
    catch (const RenderError& error)
    {
        return error.what();
    }
}
} // namespace

TEST (OutputFile, AppearsOnlyWhenItIsComplete)
{
    const FileFolder folder;
    const auto target = folder.getFile ("a.png");

    OutputFile file (target);
    file.getStream().writeText ("content", false, false, nullptr);
    EXPECT_FALSE (target.exists());

    file.commit();
    EXPECT_EQ (target.loadFileAsString(), "content");
    EXPECT_EQ (folder.getNames(), juce::StringArray ("a.png"));
}

TEST (OutputFile, LeavesNothingBehindWithoutACommit)
{
    const FileFolder folder;
    {
        OutputFile file (folder.getFile ("a.png"));
        file.getStream().writeText ("half", false, false, nullptr);
        EXPECT_EQ (folder.getNames().size(), 1);
    }
    EXPECT_TRUE (folder.getNames().isEmpty());
}

TEST (OutputFile, KeepsTheExistingFileUntilTheCommit)
{
    const FileFolder folder;
    const auto target = folder.getFile ("a.png");
    ASSERT_TRUE (target.replaceWithText ("old"));
    {
        OutputFile file (target);
        file.getStream().writeText ("new", false, false, nullptr);
    }
    EXPECT_EQ (target.loadFileAsString(), "old");

    OutputFile file (target);
    file.getStream().writeText ("new", false, false, nullptr);
    file.commit();
    EXPECT_EQ (target.loadFileAsString(), "new");
}

TEST (OutputFile, ReplacesTheFileThatALinkPointsToAndKeepsTheLink)
{
    const FileFolder folder;
    const auto target = folder.getFile ("real.png");
    const auto link = folder.getFile ("link.png");
    ASSERT_TRUE (target.replaceWithText ("old"));
    ASSERT_TRUE (target.createSymbolicLink (link, true));

    OutputFile file (link);
    file.getStream().writeText ("new", false, false, nullptr);
    file.commit();
    EXPECT_TRUE (link.isSymbolicLink());
    EXPECT_EQ (target.loadFileAsString(), "new");
}

TEST (OutputFile, RefusesATargetThatCannotBeWrittenAtOnce)
{
    const FileFolder folder;
    EXPECT_THAT (complaintAbout (folder.getFile ("none/a.png")), HasSubstr ("there is no folder"));

    ASSERT_TRUE (folder.getFile ("folder").createDirectory());
    EXPECT_THAT (complaintAbout (folder.getFile ("folder")), HasSubstr ("it is a folder"));

    ASSERT_TRUE (folder.getFile ("file").create());
    EXPECT_THAT (complaintAbout (folder.getFile ("file/a.png")), HasSubstr ("there is no folder"));
    EXPECT_EQ (folder.getNames(), juce::StringArray ("file", "folder"));

    EXPECT_THAT (complaintAbout (juce::File ("/dev/null")), HasSubstr ("it is not a regular file"));
}

TEST (OutputFile, ReportsAFailedWriteAtTheCommit)
{
    pluginCore::CheckedFileStream stream (juce::File ("/dev/full"));
    EXPECT_TRUE (stream.getResult().wasOk());

    // The content fits into the buffer, so the write fails only when the buffer is flushed.
    stream.writeText ("content", false, false, nullptr);
    EXPECT_TRUE (stream.close().failed());

    pluginCore::CheckedFileStream larger (juce::File ("/dev/full"));
    juce::MemoryBlock block (1 << 20, true);
    EXPECT_FALSE (larger.write (block.getData(), block.getSize()));
    EXPECT_FALSE (larger.write (block.getData(), 1));
    EXPECT_TRUE (larger.close().failed());
}

} // namespace mk::orlo::test
