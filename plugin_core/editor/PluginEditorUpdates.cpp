// SPDX-License-Identifier: AGPL-3.0-or-later
// The part of the editor that tells the user of new versions.
#include "PluginEditor.h"

#include "plugin_core/processor/PluginProcessor.h"

namespace mk::pluginCore
{

void PluginEditor::setUpUpdateNotice()
{
    updateChecker->addListener (this);
    updateChecker->setBaseUrl (juce::URL (pluginProcessor.getReleaseNotesUrl()));
    updateChangeLogComponent.setDownloadUrl (juce::URL (pluginProcessor.getProductUrl()));
    updateChangeLogComponent.onDownload = updateEnvironment.openInBrowser;
    updateChangeLogComponent.onClose = [this] { closeUpdateNotice(); };
    addChildComponent (updateChangeLogComponent);
}

void PluginEditor::startUpdateCheck()
{
    if (updateSchedule.isCheckDue (updateEnvironment.getCurrentTimeMs()))
        updateChecker->checkVersion();
}

void PluginEditor::versionInfoReceived (UpdateChecker&, bool newVersionAvailable, juce::int64 latestReleaseDate)
{
    const auto now = updateEnvironment.getCurrentTimeMs();
    const auto settings = globalSettings.getSettings();

    if (newVersionAvailable && updateSchedule.isNoticeDue (now, latestReleaseDate))
    {
        UpdateSchedule::storeChangeLogTime (settings, now);
        updateChecker->requestChangeLog();
    }

    UpdateSchedule::storeVersionCheck (settings, now);
}

void PluginEditor::changeLogReceived (UpdateChecker&, const juce::String& text)
{
    if (text.isEmpty())
        return;

    updateNoticeOpen = true;
    updateChangeLogComponent.setText (text);
    updateChangeLogComponent.setVisible (true);
    updateChangeLogComponent.toFront (false);

    // Keys that the user types at this moment are meant for the host, and the notice's Return opens a browser.
    // The window keeps the keyboard for itself until the user clicks into the notice or tabs there; otherwise
    // the notice, as all that is enabled, would be given it.
    setWantsKeyboardFocus (true);

    for (auto* const child : getChildren())
        child->setEnabled (child == &updateChangeLogComponent);

    updateChangeLogComponent.announce();
}

void PluginEditor::closeUpdateNotice()
{
    updateNoticeOpen = false;
    setWantsKeyboardFocus (false);

    for (auto* const child : getChildren())
        child->setEnabled (true);

    // Last, so that the keyboard finds the way back to the content.
    updateChangeLogComponent.setVisible (false);

    if (hasKeyboardFocus (false))
        grabKeyboardFocus();
}

bool PluginEditor::keyPressed (const juce::KeyPress& key)
{
    const auto isWayIn = updateNoticeOpen && key.isKeyCode (juce::KeyPress::tabKey)
                         && ! updateChangeLogComponent.hasKeyboardFocus (true);

    if (isWayIn)
        updateChangeLogComponent.grabKeyboardFocus();

    return isWayIn;
}

} // namespace mk::pluginCore
