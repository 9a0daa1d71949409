// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <cstddef>
#include <cstdint>
#include <lilv/lilv.h>
#include <lv2/atom/forge.h>
#include <lv2/options/options.h>
#include <lv2/urid/urid.h>
#include <memory>
#include <string>
#include <vector>

namespace mk::orlo::test
{

/** A host for one LV2 bundle: it reads the turtle files as hosts do and makes instances. [message thread] */
class Lv2Host
{
public:
    static constexpr int blockSize = 256;
    static constexpr double sampleRate = 48000.0;

    /** Loads the descriptions below the bundle's folder, and none of the system's. */
    explicit Lv2Host (const juce::File& bundle);

    /** Null if the bundle does not describe a plug-in of this URI. */
    [[nodiscard]] const LilvPlugin* getPlugin() const noexcept { return plugin; }
    [[nodiscard]] LilvWorld* getWorld() const noexcept { return world.get(); }

    /** The number that stands for a URI in this host. */
    [[nodiscard]] LV2_URID map (const char* uri);

    /** What every instance gets, with a null at the end. */
    [[nodiscard]] const LV2_Feature* const* getFeatures() const noexcept { return features.data(); }
    [[nodiscard]] LV2_URID_Map& getMap() noexcept { return mapFeature; }
    [[nodiscard]] LV2_URID_Unmap& getUnmap() noexcept { return unmapFeature; }

private:
    [[nodiscard]] const char* unmap (LV2_URID number) const noexcept;

    struct FreeWorld
    {
        void operator() (LilvWorld* worldToFree) const noexcept { lilv_world_free (worldToFree); }
    };

    std::unique_ptr<LilvWorld, FreeWorld> world { lilv_world_new() };
    const LilvPlugin* plugin = nullptr;
    std::vector<std::unique_ptr<const std::string>> uris;
    LV2_URID_Map mapFeature;
    LV2_URID_Unmap unmapFeature;
    std::int32_t largestBlock = blockSize;
    std::vector<LV2_Options_Option> options;
    std::vector<LV2_Feature> featureList;
    std::vector<const LV2_Feature*> features;

    JUCE_DECLARE_NON_COPYABLE (Lv2Host)
};

/** An instance with all its ports connected. [message thread] */
class Lv2Instance
{
public:
    /** The host must outlive the instance. */
    explicit Lv2Instance (Lv2Host& hostToUse);
    ~Lv2Instance();

    [[nodiscard]] bool isLoaded() const noexcept { return instance != nullptr; }

    /** Sends a value for a parameter with the next block. */
    void setParameter (const std::string& uri, float value);

    /** Plays a block of Lv2Host::blockSize samples of each channel. */
    void run();

    /** The session, as text. */
    [[nodiscard]] std::string save();
    void restore (const std::string& session);

    std::vector<float> inputs[2], outputs[2];

private:
    Lv2Host& host;
    LilvInstance* instance = nullptr;
    LV2_Atom_Forge forge {};
    alignas (8) std::byte toPlugin[65536] {}, fromPlugin[65536] {};
    float latency = -1.0f, freeWheeling = 0.0f, enabled = 1.0f;

    JUCE_DECLARE_NON_COPYABLE (Lv2Instance)
};

} // namespace mk::orlo::test
