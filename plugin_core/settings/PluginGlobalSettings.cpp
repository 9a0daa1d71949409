// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginGlobalSettings.h"

#include "plugin_core/files/FileReplacement.h"
#include "plugin_core/files/UntrustedXml.h"

#include <mutex>
#include <utility>

namespace mk::pluginCore
{
namespace
{
/** The process's one shared object. It exists while any handle does and while it is being written. */
struct SharedInstance
{
    std::mutex mutex;                                        // never held during disk access
    std::weak_ptr<PluginGlobalSettings::InnerData> instance; // guarded by the mutex
    juce::uint32 numWritten = 0;                             // counts released objects, guarded by the mutex
};

[[nodiscard]] SharedInstance& getSharedInstance()
{
    static SharedInstance shared;
    return shared;
}

/** The file, if its content is safe to read: some malformed files would make juce::PropertiesFile crash the
    host. Such a file is renamed, so that a user can still repair an editing mistake. If it cannot be renamed,
    the path is empty, so the file is neither read nor written. */
[[nodiscard]] juce::File withoutBrokenContent (const juce::File& file)
{
    if (! file.existsAsFile() || parseUntrustedXml (file) != nullptr)
        return file;

    return file.moveFileTo (file.withFileExtension ("broken")) ? file : juce::File();
}

/** The document that juce::PropertiesFile reads. */
[[nodiscard]] juce::String createDocument (const juce::StringPairArray& properties)
{
    juce::XmlElement document ("PROPERTIES");

    for (const auto& key : properties.getAllKeys())
    {
        auto* const value = document.createNewChildElement ("VALUE");
        value->setAttribute ("name", key);

        // XML values are stored as elements, so that people can read and edit the file.
        if (auto xml = parseUntrustedXml (properties[key]))
            value->addChildElement (xml.release());
        else
            value->setAttribute ("val", properties[key]);
    }

    return document.toString();
}
} // namespace

//==============================================================================
std::shared_ptr<PluginGlobalSettings::InnerData> PluginGlobalSettings::obtainInstance()
{
    auto& shared = getSharedInstance();
    std::shared_ptr<InnerData> candidate; // read from the file, used only if no other object was written meanwhile
    juce::uint32 numWrittenBefore = 0;

    for (;;)
    {
        {
            const std::lock_guard lock (shared.mutex);
            auto present = shared.instance.lock();

            if (present == nullptr && candidate != nullptr && numWrittenBefore == shared.numWritten)
            {
                present = candidate;
                shared.instance = present;
            }

            if (present != nullptr)
            {
                ++present->numHandles;

                if (present != candidate && candidate != nullptr)
                    candidate->discardChanges();

                return present;
            }

            numWrittenBefore = shared.numWritten;
        }

        if (candidate != nullptr)
            candidate->discardChanges();

        candidate = std::make_shared<InnerData>();
    }
}

PluginGlobalSettings::PluginGlobalSettings() : innerData (obtainInstance()) {}

PluginGlobalSettings::PluginGlobalSettings (const PluginGlobalSettings& other) : innerData (other.innerData)
{
    const std::lock_guard lock (getSharedInstance().mutex);
    ++innerData->numHandles;
}

PluginGlobalSettings::~PluginGlobalSettings()
{
    auto& shared = getSharedInstance();
    std::unique_lock lock (shared.mutex);

    // A thread that is already writing checks for new changes afterwards.
    if (--innerData->numHandles > 0 || innerData->isBeingWritten)
        return;

    innerData->isBeingWritten = true;

    // A handle created meanwhile shares this object, since the file may still be the old one, and may change the
    // tree. So the document to write is created under the mutex.
    for (auto document = innerData->takeChanges(); innerData->numHandles == 0 && document.isNotEmpty();
         document = innerData->numHandles == 0 ? innerData->takeChanges() : juce::String())
    {
        lock.unlock();
        innerData->write (document);
        lock.lock();
    }

    innerData->isBeingWritten = false;

    if (innerData->numHandles == 0)
    {
        shared.instance.reset();
        ++shared.numWritten;
    }
}

juce::ValueTree PluginGlobalSettings::getSettings() const { return innerData->getSettings(); }

//==============================================================================
PluginGlobalSettings::InnerData::InnerData (const juce::File& fileToUse)
    : juce::PropertiesFile (withoutBrokenContent (fileToUse), getOptions())
{
    const auto& key = SettingsIds::settings.toString();

    if (containsKey (key))
        textInFile = getValue (key);

    if (const auto xml = parseUntrustedXml (getValue (SettingsIds::settings)))
        settings.copyPropertiesAndChildrenFrom (juce::ValueTree::fromXml (*xml), nullptr);
}

PluginGlobalSettings::InnerData::~InnerData()
{
    if (const auto document = takeChanges(); document.isNotEmpty())
        write (document);
}

juce::String PluginGlobalSettings::InnerData::takeChanges()
{
    const auto xml = settings.createXml();
    const auto text = xml != nullptr ? xml->toString() : juce::String();

    if (std::exchange (textInFile, text) == text)
        return {};

    // The base class would start its saving timer, retry a failed write, and not check that all of it was
    // written, so it is bypassed. The last handle may be destroyed on any thread, hence the lock.
    const juce::ScopedLock scopedLock (getLock());
    auto contents = getAllProperties();
    contents.set (SettingsIds::settings.toString(), text);
    return createDocument (contents);
}

void PluginGlobalSettings::InnerData::write (const juce::String& document) const
{
    replaceFileContent (getFile(), document);
}

juce::PropertiesFile::Options PluginGlobalSettings::InnerData::getOptions()
{
    Options options;
    options.applicationName = PLUGIN_CORE_PRODUCT_NAME;
    options.filenameSuffix = "settings";
    options.folderName =
        juce::String (PLUGIN_CORE_COMPANY_NAME) + juce::File::getSeparatorString() + options.applicationName;
    options.osxLibrarySubFolder = "Application Support";
    options.commonToAllUsers = false;
    options.ignoreCaseOfKeyNames = false;
    options.doNotSave = false;
    options.millisecondsBeforeSaving = 10;
    options.storageFormat = storeAsXML;
    options.processLock = nullptr;
    return options;
}

} // namespace mk::pluginCore
