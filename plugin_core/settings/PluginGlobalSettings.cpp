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
/** The process's one object, as long as any handle lives or it is being written. */
struct SharedInstance
{
    std::mutex mutex;                                        // never held while the disk is at work
    std::weak_ptr<PluginGlobalSettings::InnerData> instance; // guarded by the mutex
    juce::uint32 numWritten = 0;                             // objects that have come and gone, guarded by the mutex
};

[[nodiscard]] SharedInstance& getSharedInstance()
{
    static SharedInstance shared;
    return shared;
}

/** The file, once nothing lies there that the properties file must not read: some broken files would make
    it take the host down. Those are set aside, where a slip of the hand can still be repaired. A file
    that cannot be moved is neither read nor written. */
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

        // A value that is XML stands as an element, so that the file can be read and edited.
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
    std::shared_ptr<InnerData> candidate; // as read from the file, until it is known that nobody has newer values
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

    // Whoever is writing already sees that there is more to write.
    if (--innerData->numHandles > 0 || innerData->isBeingWritten)
        return;

    innerData->isBeingWritten = true;

    // A handle that is made meanwhile takes this object and not the file, which may be the old one still. What
    // is written is fixed under the mutex: from then on the tree may be that handle's.
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

    // Past the base class, which would start its saving timer, try a failed write again, and not look at how
    // much of it succeeded. The last handle may go on any thread.
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
