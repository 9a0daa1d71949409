// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginGlobalSettings.h"

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
    : juce::PropertiesFile (fileToUse, getOptions())
{
    if (const auto xml = getXmlValue (SettingsIds::settings))
        settings.copyPropertiesAndChildrenFrom (juce::ValueTree::fromXml (*xml), nullptr);
}

PluginGlobalSettings::InnerData::~InnerData()
{
    const auto xml = settings.createXml();
    const auto text = xml != nullptr ? xml->toString() : juce::String();

    const juce::ScopedLock scopedLock (getLock());

    if (! containsKey (SettingsIds::settings) || getValue (SettingsIds::settings) != text)
        setValue (SettingsIds::settings, text);

    saveIfNeeded();

    // The base class would try a failed write a second time.
    setNeedsToBeSaved (false);
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
