#include <platform/settings/SimulatedProfile.h>
#include <platform/settings/TomlTable.h>

#include <limits>

namespace platform {

namespace {

constexpr std::uint8_t kMaxByte = std::numeric_limits<std::uint8_t>::max();
constexpr int kMinInt = std::numeric_limits<int>::min();
constexpr int kMaxInt = std::numeric_limits<int>::max();

SimulatedNode ReadNode(TomlTable& table) {
    SimulatedNode node;
    node.data = table.Integers<std::uint8_t>("data", 0, kMaxByte).value_or(node.data);
    node.completionCode =
        table.Integer<std::uint8_t>("completion_code", 0, kMaxByte).value_or(node.completionCode);
    node.busy = table.Integer("busy", 0, kMaxInt).value_or(node.busy);
    node.length = table.Integer("length", kMinInt, kMaxInt);
    node.answers = table.Boolean("answers").value_or(node.answers);
    node.present = table.Boolean("present").value_or(node.present);
    node.answersGeneration = table.Boolean("answers_generation").value_or(node.answersGeneration);
    node.generationCompletionCode =
        table.Integer<std::uint8_t>("generation_completion_code", 0, kMaxByte)
            .value_or(node.generationCompletionCode);
    node.answersDeviceId = table.Boolean("answers_device_id").value_or(node.answersDeviceId);
    table.RejectOtherKeys();
    return node;
}

}  // namespace

SimulatedProfile ReadSimulatedProfile(const std::string& path) {
    TomlTable file = TomlTable::Read(path);
    SimulatedProfile profile;
    profile.machineType = file.Text("machine_type");
    profile.biosId = file.Text("bios_id");
    profile.oxc = file.Boolean("oxc");
    profile.oemBuild = file.Boolean("oem_build");
    profile.generation = file.Integer("generation", 1, 2).value_or(profile.generation);
    for (TomlTable& node : file.Tables("node").value_or(std::vector<TomlTable>{}))
        profile.nodes.push_back(ReadNode(node));
    file.RejectOtherKeys();
    profile.places = file.Places();
    return profile;
}

}  // namespace platform
