// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginGlobalSettings.h"

#include "plugin_core/files/FileReplacement.h"
#include "plugin_core/files/UntrustedXml.h"

namespace mk::pluginCore
{
namespace
{
/** The process's one object, as long as any handle lives. */
struct SharedInstance
{
    juce::SpinLock lock;
    std::weak_ptr<PluginGlobalSettings::InnerData> instance; // guarded by the lock
};

[[nodiscard]] SharedInstance& getSharedInstance()
{
    static SharedInstance shared;
    return shared;
}

[[nodiscard]] std::shared_ptr<PluginGlobalSettings::InnerData> obtainInstance()
{
    auto& shared = getSharedInstance();
    const juce::SpinLock::ScopedLockType scopedLock (shared.lock);

    if (auto existing = shared.instance.lock())
        return existing;

    auto created = std::make_shared<PluginGlobalSettings::InnerData>();
    shared.instance = created;
    return created;
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
PluginGlobalSettings::PluginGlobalSettings() : innerData (obtainInstance()) {}

PluginGlobalSettings::~PluginGlobalSettings()
{
    // Under the lock, so that a handle made at the same moment on another thread cannot read the file
    // before the last values are in it.
    const juce::SpinLock::ScopedLockType scopedLock (getSharedInstance().lock);
    innerData.reset();
}

juce::ValueTree PluginGlobalSettings::getSettings() const { return innerData->getSettings(); }

//==============================================================================
PluginGlobalSettings::InnerData::InnerData (const juce::File& fileToUse)
    : juce::PropertiesFile (withoutBrokenContent (fileToUse), getOptions())
{
    if (const auto xml = parseUntrustedXml (getValue (SettingsIds::settings)))
        settings.copyPropertiesAndChildrenFrom (juce::ValueTree::fromXml (*xml), nullptr);
}

PluginGlobalSettings::InnerData::~InnerData()
{
    const auto xml = settings.createXml();
    const auto text = xml != nullptr ? xml->toString() : juce::String();

    // Past the base class, which would start its saving timer, try a failed write again, and not look at how
    // much of it succeeded. The last handle may go on any thread.
    const juce::ScopedLock scopedLock (getLock());
    auto contents = getAllProperties();
    const auto key = SettingsIds::settings.toString();

    if (contents.containsKey (key) && contents[key] == text)
        return;

    contents.set (key, text);
    replaceFileContent (getFile(), createDocument (contents));
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
