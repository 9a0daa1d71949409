// SPDX-License-Identifier: AGPL-3.0-or-later
// The part of the editor that notifies the user of new versions.
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

    // Keys that the user types at this moment are meant for the host, and Return in the notice opens a browser.
    // The notice is the only enabled child, so JUCE would give it the keyboard focus. So the editor itself takes
    // the focus until the user clicks into the notice or presses Tab.
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

    // Hide the notice last, once the content is enabled and can take the keyboard focus.
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
