// Troubles of controllers and busses that were not examined: code, text and advice.
#pragma once

#include <platform/diagnostics/Trouble.h>

#include <cstdint>
#include <string>

namespace run_trouble {

// The answer had a completion code other than 0.
platform::Trouble Refused(std::uint8_t completionCode);

// The answer had no more than a completion code; `length` is what the transport returned.
platform::Trouble TooShort(int length);

// There is no library object for the controller.
platform::Trouble NotPresent();

// The run ended at controller `node`, before this one was asked.
platform::Trouble NotAskedAfter(int node);

// The first controller is not present, which makes the machine one without controllers.
platform::Trouble NotAskedWithoutFirst();

// The machine is not supported, so no controller was asked.
platform::Trouble NotAskedOnThisMachine();

// The program was told to stop before.
platform::Trouble Interrupted();

// The two generations of OXC controllers mean different busses by the answer; `reason` is why the
// generation query failed.
platform::Trouble GenerationUnknown(const std::string& reason);

// The answer announces more than fits the buffer; `length` is what the transport returned.
platform::Trouble AnswerCut(int length);

// Whether the controllers are of the OXC family was not found out, for `reason`.
platform::Trouble FamilyUnknown(const platform::Trouble& reason);

// The catalog's file cannot be read, for `reason`, or not to its end.
platform::Trouble CatalogMissing(const std::string& catalog);
platform::Trouble CatalogUnreadable(const std::string& catalog, const std::string& reason);
platform::Trouble CatalogIndex(const std::string& catalog, int line, const std::string& index);
platform::Trouble CatalogSyntax(const std::string& catalog, int line, const std::string& error);

// The catalog lists the machine, but not the generic machine that every message needs.
platform::Trouble CatalogLacksGenericEntry(const std::string& catalog, const std::string& entry);

// Neither machine type nor BIOS identifier is in the catalog, which is not read without a machine
// type. `smbiosProblem` says why SMBIOS's texts cannot be read, if so.
platform::Trouble UnsupportedMachine(const std::string& catalog, const std::string& machineType,
                                     const std::string& biosId, const std::string& smbiosProblem);

}  // namespace run_trouble
