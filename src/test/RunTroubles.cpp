#include <platform/service_processor/InWords.h>
#include <platform/service_processor/IpmiMessage.h>
#include <platform/service_processor/TransportError.h>
#include <test/RunTroubles.h>

namespace run_trouble {

using platform::NameOf;
using platform::Trouble;
using platform::TroubleCode;

namespace {

constexpr const char* kOtherCatalog =
    "or name the diagnostics root directory of another one (--root DIR).";

std::string AdviceFor(std::uint8_t completionCode) {
    switch (completionCode) {
        case platform::kNodeBusy:
        case platform::kControllerBusy:
        case platform::kStarting:
            return "Wait a while, then run the test again.";
        case platform::kInvalidCommand:
            return "Check that the controller is of a make that this test supports, and that its "
                   "firmware is current.";
        case platform::kTimeOver:
            return "Run the test again. If it still fails, restart the controller.";
        case platform::kInsufficientPrivilege:
            return "Use a user, or set a privilege_level, that may send OEM commands.";
        default:
            return "Run the test again. If it still fails, restart the controller or update its "
                   "firmware.";
    }
}

}  // namespace

Trouble Refused(std::uint8_t completionCode) {
    const bool isBusy =
        completionCode == platform::kNodeBusy || completionCode == platform::kControllerBusy;
    return {.code = NameOf(isBusy ? TroubleCode::Busy : TroubleCode::Refused),
            .text = "The controller refused the request with completion code " +
                    platform::Hexadecimal(completionCode) + platform::Meaning(completionCode) + ".",
            .advice = AdviceFor(completionCode)};
}

Trouble TooShort(int length) {
    return {
        .code = NameOf(TroubleCode::UnusableAnswers),
        .text = "The controller's answer was too short (length " + std::to_string(length) + ").",
        .advice = "Run the test again. If it still fails, update the controller's firmware."};
}

Trouble NotPresent() {
    return {.code = NameOf(TroubleCode::NotPresent),
            .text = "The controller is not present.",
            .advice = ""};
}

Trouble NotAskedAfter(int node) {
    return {.code = "not_asked",
            .text = "The controller was not asked: the run ended at node " + std::to_string(node) +
                    ", whose answer could not be used.",
            .advice = "To ask every controller all the same, use bmci2c run --all."};
}

Trouble NotAskedWithoutFirst() {
    return {
        .code = "not_asked",
        .text = "The controller was not asked: the run begins with node 0, which is not present.",
        .advice = ""};
}

Trouble NotAskedOnThisMachine() {
    return {.code = "not_asked",
            .text =
                "The controller was not asked, because the message catalog has no entry for this "
                "machine.",
            .advice = ""};
}

Trouble Interrupted() {
    return {.code = NameOf(TroubleCode::Interrupted),
            .text = "The run was interrupted before the controller was examined.",
            .advice = "Run the test again."};
}

Trouble GenerationUnknown(const std::string& reason) {
    return {.code = "generation_unknown",
            .text =
                "The controller's generation is not known, and the two generations mean "
                "different busses by bits 6 and 7 of the first status byte and by the second "
                "byte. It was judged as one of the first, and busses 6 and 7 not at all. " +
                reason,
            .advice = "Find out why node 0 does not tell its generation, then run the test again."};
}

Trouble AnswerCut(int length) {
    return {.code = "answer_cut",
            .text = "The controller's answer was too long (length " + std::to_string(length) +
                    "): its end was not examined.",
            .advice = "Run the test again. If it still fails, update the controller's firmware."};
}

Trouble FamilyUnknown(const Trouble& reason) {
    return {.code = "family_unknown",
            .text =
                "Whether the controllers are of the OXC family could not be checked, so they "
                "were judged as controllers of another family: " +
                reason.text,
            .advice = reason.advice};
}

Trouble CatalogMissing(const std::string& catalog) {
    return {.code = "catalog_missing",
            .text = "There is no message catalog " + catalog + ".",
            .advice = std::string("Put a message catalog there, ") + kOtherCatalog};
}

Trouble CatalogUnreadable(const std::string& catalog, const std::string& reason) {
    return {.code = "catalog_unreadable",
            .text = "The message catalog " + catalog + " cannot be read: " + reason + ".",
            .advice = std::string("Make the message catalog readable, ") + kOtherCatalog};
}

Trouble CatalogSyntax(const std::string& catalog, int line, const std::string& error) {
    return {.code = "catalog_syntax",
            .text = "The message catalog " + catalog + " is wrong in line " + std::to_string(line) +
                    ": " + error,
            .advice = std::string("Fix the message catalog, ") + kOtherCatalog};
}

Trouble CatalogIndex(const std::string& catalog, int line, const std::string& index) {
    return {.code = "catalog_index",
            .text = "The message catalog " + catalog + " is wrong in line " + std::to_string(line) +
                    ": the index '" + index + "' is not decimal. Nothing from here on was read.",
            .advice = std::string("Fix the message catalog, ") + kOtherCatalog};
}

Trouble CatalogLacksGenericEntry(const std::string& catalog, const std::string& entry) {
    return {.code = "catalog_generic_missing",
            .text = "The message catalog " + catalog + " has no entry " + entry +
                    ", so the test's messages have no text.",
            .advice = "Add <machine type=\"" + entry + "\"> to the message catalog."};
}

Trouble UnsupportedMachine(const std::string& catalog, const std::string& machineType,
                           const std::string& biosId, const std::string& smbiosProblem) {
    if (machineType.empty()) {
        const std::string reason = smbiosProblem.empty() ? "" : " " + smbiosProblem;
        return {.code = "machine_unknown",
                .text =
                    "The machine type of this machine could not be read or is empty, so the "
                    "message catalog was not read." +
                    reason,
                .advice =
                    "Run the command on the server itself, or set 'type' under [machine] in "
                    "the settings file."};
    }
    return {.code = "machine_not_listed",
            .text = "The message catalog " + catalog + " lists neither the machine type '" +
                    machineType + "' nor the BIOS identifier '" + biosId + "'.",
            .advice = std::string("Add the machine to the message catalog, ") + kOtherCatalog};
}

}  // namespace run_trouble
