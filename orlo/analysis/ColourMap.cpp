// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ColourMap.h"

#include "ColourTables.h"

namespace mk::orlo
{

ColourMap::ColourMap (unsigned index) : mapIndex (index), colours (getColourList (index))
{
    if (colours.size() != numEntries)
    {
        const auto gradient = makeGradient (index);
        colours.resize (numEntries);

        juce::PixelARGB table[numEntries];
        gradient.createLookupTable (table, numEntries);

        for (int i = 0; i < numEntries; ++i)
            colours.setUnchecked (i, juce::Colour (table[i]));
    }

    pixels.ensureStorageAllocated (numEntries);

    for (const auto& colour : colours)
        pixels.add (colour.getARGB());
}

juce::Array<juce::Colour> ColourMap::getColourList (unsigned index)
{
    const auto& lists = colourTables::getAll();
    return lists[index < lists.size() ? index : colourTables::magmaIndex];
}

juce::ColourGradient ColourMap::makeGradient (unsigned index)
{
    const auto list = getColourList (index);
    juce::ColourGradient gradient (list.getFirst(), 0.0f, 0.0f, list.getLast(), 0.0f, 1.0f, false);

    for (int i = 0; i < list.size(); ++i)
        gradient.addColour (double (i) / double (list.size() - 1), list.getUnchecked (i));

    return gradient;
}

} // namespace mk::orlo
