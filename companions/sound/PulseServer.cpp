// SPDX-License-Identifier: GPL-3.0-or-later
// What the running sound server tells of its outputs, by libpulse.
#include "sound/PulseServer.h"

#include "sound/PulseConnection.h"

#include <QMap>

#include <algorithm>
#include <pulse/pulseaudio.h>

namespace {

constexpr double fullPercent = 100.0;
constexpr double usPerMs = 1000.0;

struct Module {
    QString name;
    QString arguments;
};

/// What the server answered, as it came.
struct Answers {
    QString serverName;
    QString serverVersion;
    QString defaultOutput;
    QVector<OutputFacts> outputs;
    QVector<uint32_t> owners; ///< of the outputs
    QMap<uint32_t, Module> modules;
    int forcedQuantum = 0; ///< for this program
};

QVector<ChannelVolume> volumesOf(const pa_sink_info& sink)
{
    QVector<ChannelVolume> volumes;
    for (int i = 0; i < sink.volume.channels; ++i) {
        volumes.append({pa_channel_position_to_string(sink.channel_map.map[i]),
            sink.volume.values[i] * fullPercent / PA_VOLUME_NORM});
    }
    return volumes;
}

OutputFacts outputOf(const pa_sink_info& sink)
{
    OutputFacts output;
    output.name = sink.name;
    output.description = sink.description;
    output.rate = static_cast<int>(sink.sample_spec.rate);
    output.format = pa_sample_format_to_string(sink.sample_spec.format);
    output.volumes = volumesOf(sink);
    output.isMuted = sink.mute != 0;
    output.latencyMs = static_cast<double>(sink.configured_latency) / usPerMs;
    output.sleepsAfter = pa_proplist_gets(sink.proplist, "session.suspend-timeout-seconds");
    return output;
}

void keepServer(pa_context* /*context*/, const pa_server_info* server, void* user)
{
    auto& answers = *static_cast<Answers*>(user);
    if (server != nullptr) {
        answers.serverName = server->server_name;
        answers.serverVersion = server->server_version;
        answers.defaultOutput = server->default_sink_name;
    }
}

void keepOutput(pa_context* /*context*/, const pa_sink_info* sink, int /*isLast*/, void* user)
{
    auto& answers = *static_cast<Answers*>(user);
    if (sink != nullptr) {
        answers.outputs.append(outputOf(*sink));
        answers.owners.append(sink->owner_module);
    }
}

void keepModule(pa_context* /*context*/, const pa_module_info* module, int /*isLast*/, void* user)
{
    auto& answers = *static_cast<Answers*>(user);
    if (module != nullptr) {
        answers.modules.insert(module->index, {module->name, module->argument});
    }
}

// A rule that matches the program's name puts what it sets among the program's properties.
void keepSelf(pa_context* /*context*/, const pa_client_info* self, int /*isLast*/, void* user)
{
    auto& answers = *static_cast<Answers*>(user);
    if (self != nullptr) {
        answers.forcedQuantum
            = QString(pa_proplist_gets(self->proplist, "node.force-quantum")).toInt();
    }
}

bool ask(PulseConnection& connection, Answers& answers)
{
    pa_context* const context = connection.context();
    return connection.await(pa_context_get_server_info(context, keepServer, &answers))
        && connection.await(pa_context_get_module_info_list(context, keepModule, &answers))
        && connection.await(pa_context_get_sink_info_list(context, keepOutput, &answers))
        && connection.await(
            pa_context_get_client_info(context, pa_context_get_index(context), keepSelf, &answers));
}

QString argumentOf(const QString& arguments, const QString& name)
{
    const QStringList all = arguments.split(' ');
    for (const QString& argument : all) {
        if (argument.startsWith(name + '=')) {
            return argument.mid(name.size() + 1).remove('"');
        }
    }
    return {};
}

// A virtual output names the one that it plays on.
QVector<OutputFacts> pathFrom(const QString& first, const QVector<OutputFacts>& outputs)
{
    QVector<OutputFacts> path;
    QString name = first;
    while (path.size() <= outputs.size()) {
        const auto found = std::find_if(outputs.cbegin(), outputs.cend(),
            [&name](const OutputFacts& output) { return output.name == name; });
        if (found == outputs.cend()) {
            break;
        }
        path.append(*found);
        name = argumentOf(found->moduleArguments, "master");
    }
    return path;
}

SoundPath pathOf(Answers& answers)
{
    for (int i = 0; i < answers.outputs.size(); ++i) {
        const Module module = answers.modules.value(answers.owners[i]);
        answers.outputs[i].module = module.name;
        answers.outputs[i].moduleArguments = module.arguments;
    }
    SoundPath path;
    path.serverName = answers.serverName;
    path.serverVersion = answers.serverVersion;
    path.outputs = pathFrom(answers.defaultOutput, answers.outputs);
    path.hasSuspendOnIdle = std::any_of(answers.modules.cbegin(), answers.modules.cend(),
        [](const Module& module) { return module.name == "module-suspend-on-idle"; });
    return path;
}

} // namespace

FoundPath askPulseServer()
{
    Answers answers;
    PulseConnection connection;
    if (!connection.open() || !ask(connection, answers)) {
        return {{}, 0, connection.error()};
    }
    return {pathOf(answers), answers.forcedQuantum, {}};
}
