// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Lv2Host.h"

#include <cstdlib>
#include <lv2/atom/atom.h>
#include <lv2/buf-size/buf-size.h>
#include <lv2/patch/patch.h>
#include <lv2/state/state.h>

namespace mk::orlo::test
{
namespace
{
/** A node of a URI, freed at the end of its scope. */
using Node = std::unique_ptr<LilvNode, void (*) (LilvNode*)>;

[[nodiscard]] Node makeUri (LilvWorld* world, const char* uri) { return { lilv_new_uri (world, uri), lilv_node_free }; }
} // namespace

Lv2Host::Lv2Host (const juce::File& bundle)
    : mapFeature { this,
                   [] (LV2_URID_Map_Handle host, const char* uri) { return static_cast<Lv2Host*> (host)->map (uri); } },
      unmapFeature { this,
                     [] (LV2_URID_Unmap_Handle host, LV2_URID number)
                     { return static_cast<const Lv2Host*> (host)->unmap (number); } },
      options { { LV2_OPTIONS_INSTANCE,
                  0,
                  map (LV2_BUF_SIZE__maxBlockLength),
                  sizeof (largestBlock),
                  map (LV2_ATOM__Int),
                  &largestBlock },
                { LV2_OPTIONS_INSTANCE, 0, 0, 0, 0, nullptr } },
      featureList { { LV2_URID__map, &mapFeature },
                    { LV2_URID__unmap, &unmapFeature },
                    { LV2_OPTIONS__options, options.data() },
                    { LV2_BUF_SIZE__boundedBlockLength, nullptr } }
{
    for (const auto& feature : featureList)
        features.push_back (&feature);

    features.push_back (nullptr);

    const auto path = bundle.getFullPathName() + "/";
    const Node folder (lilv_new_file_uri (world.get(), nullptr, path.toRawUTF8()), lilv_node_free);
    lilv_world_load_bundle (world.get(), folder.get());

    const auto uri = makeUri (world.get(), ORLO_LV2_URI);
    plugin = lilv_plugins_get_by_uri (lilv_world_get_all_plugins (world.get()), uri.get());
}

LV2_URID Lv2Host::map (const char* uri)
{
    for (size_t i = 0; i < uris.size(); ++i)
        if (*uris[i] == uri)
            return LV2_URID (i + 1);

    uris.push_back (std::make_unique<const std::string> (uri));
    return LV2_URID (uris.size());
}

const char* Lv2Host::unmap (LV2_URID number) const noexcept
{
    return number > 0 && number <= uris.size() ? uris[number - 1]->c_str() : nullptr;
}

//==============================================================================
Lv2Instance::Lv2Instance (Lv2Host& hostToUse) : host (hostToUse)
{
    for (auto* buffers : { inputs, outputs })
        for (int channel = 0; channel < 2; ++channel)
            buffers[channel].assign (Lv2Host::blockSize, 0.0f);

    lv2_atom_forge_init (&forge, &host.getMap());
    instance = lilv_plugin_instantiate (host.getPlugin(), Lv2Host::sampleRate, host.getFeatures());

    if (instance == nullptr)
        return;

    const std::initializer_list<std::pair<const char*, void*>> ports { { "audio_in_1", inputs[0].data() },
                                                                       { "audio_in_2", inputs[1].data() },
                                                                       { "audio_out_1", outputs[0].data() },
                                                                       { "audio_out_2", outputs[1].data() },
                                                                       { "in", toPlugin },
                                                                       { "out", fromPlugin },
                                                                       { "latency", &latency },
                                                                       { "freeWheeling", &freeWheeling },
                                                                       { "enabled", &enabled } };

    for (const auto& [symbol, data] : ports)
    {
        const Node node (lilv_new_string (host.getWorld(), symbol), lilv_node_free);

        if (const auto* port = lilv_plugin_get_port_by_symbol (host.getPlugin(), node.get()))
            lilv_instance_connect_port (instance, lilv_port_get_index (host.getPlugin(), port), data);
    }

    lilv_instance_activate (instance);
    lv2_atom_forge_set_buffer (&forge, reinterpret_cast<uint8_t*> (toPlugin), sizeof (toPlugin));
}

Lv2Instance::~Lv2Instance()
{
    if (instance != nullptr)
    {
        lilv_instance_deactivate (instance);
        lilv_instance_free (instance);
    }
}

void Lv2Instance::setParameter (const std::string& uri, float value)
{
    LV2_Atom_Forge_Frame sequence, object;
    lv2_atom_forge_set_buffer (&forge, reinterpret_cast<uint8_t*> (toPlugin), sizeof (toPlugin));
    lv2_atom_forge_sequence_head (&forge, &sequence, 0);
    lv2_atom_forge_frame_time (&forge, 0);
    lv2_atom_forge_object (&forge, &object, 0, host.map (LV2_PATCH__Set));
    lv2_atom_forge_key (&forge, host.map (LV2_PATCH__property));
    lv2_atom_forge_urid (&forge, host.map (uri.c_str()));
    lv2_atom_forge_key (&forge, host.map (LV2_PATCH__value));
    lv2_atom_forge_float (&forge, value);
    lv2_atom_forge_pop (&forge, &object);
    lv2_atom_forge_pop (&forge, &sequence);
}

void Lv2Instance::run()
{
    // The size of an output is the room in it.
    auto* const output = reinterpret_cast<LV2_Atom_Sequence*> (fromPlugin);
    output->atom = { uint32_t (sizeof (fromPlugin) - sizeof (LV2_Atom)), host.map (LV2_ATOM__Chunk) };

    lilv_instance_run (instance, Lv2Host::blockSize);

    LV2_Atom_Forge_Frame sequence;
    lv2_atom_forge_set_buffer (&forge, reinterpret_cast<uint8_t*> (toPlugin), sizeof (toPlugin));
    lv2_atom_forge_sequence_head (&forge, &sequence, 0);
    lv2_atom_forge_pop (&forge, &sequence);
}

std::string Lv2Instance::save()
{
    auto* const state = lilv_state_new_from_instance (host.getPlugin(),
                                                      instance,
                                                      &host.getMap(),
                                                      nullptr,
                                                      nullptr,
                                                      nullptr,
                                                      nullptr,
                                                      nullptr,
                                                      nullptr,
                                                      LV2_STATE_IS_POD | LV2_STATE_IS_PORTABLE,
                                                      host.getFeatures());
    const std::unique_ptr<char, void (*) (void*)> text (
        lilv_state_to_string (
            host.getWorld(), &host.getMap(), &host.getUnmap(), state, ORLO_LV2_URI ":session", nullptr),
        std::free);
    lilv_state_free (state);
    return text != nullptr ? text.get() : std::string();
}

void Lv2Instance::restore (const std::string& session)
{
    auto* const state = lilv_state_new_from_string (host.getWorld(), &host.getMap(), session.c_str());
    lilv_state_restore (state, instance, nullptr, nullptr, 0, host.getFeatures());
    lilv_state_free (state);
}

} // namespace mk::orlo::test
