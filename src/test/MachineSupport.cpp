#include <base/Names.h>
#include <catalog/IndexError.h>
#include <platform/diagnostics/TOSSpecific.h>
#include <platform/diagnostics/TZDXException.h>
#include <platform/settings/FileText.h>
#include <test/BMCI2C_Test_Impl.h>
#include <test/CoreLog.h>
#include <test/MachineTypes.h>
#include <test/MessageNumbers.h>
#include <test/RunTroubles.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <new>
#include <system_error>

using NQUVZDX20::kLogError;
using NQUVZDX20::kLogTrace;
using NQUVZDX20::TOSSpecific;

namespace {

constexpr char kUnsetBiosId[] = "00";

struct CloseFile {
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};

}  // namespace

std::string BMCI2C_Test_Impl::CatalogPath() {
    return TOSSpecific::GetZDXRootPath() + "/" + base::kCatalogFile;
}

bool BMCI2C_Test_Impl::SupportedMachineType() {
    const std::lock_guard<std::mutex> noRun(runLock);
    ReadMachineType();
    ParseXML();
    return IsMachineSupported();
}

std::optional<ResultMessage> BMCI2C_Test_Impl::ReadMachineType() {
    RunRecord record(*this, testName);
    const std::int32_t status = GetMachineType(&machineType);
    record->MachineType = machineType;
    if (status != 0) {
        return KeepMachineTypeFailure(record, kUnableReadMT, kMachineTypeUnreadable);
    }
    if (machineType.empty()) {
        return KeepMachineTypeFailure(record, kMTEmpty, kMachineTypeEmpty);
    }
    return std::nullopt;
}

ResultMessage BMCI2C_Test_Impl::KeepMachineTypeFailure(RunRecord& record, std::string_view reason,
                                                       unsigned short number) {
    WriteCoreLog(kLogError, std::string(reason));
    ResultMessage message = BuildMessage(kNotCompletedMessage, number);
    record.SetResult(TextOf(message), kCompletionCriticalError);
    record.Keep();
    return message;
}

void BMCI2C_Test_Impl::ParseXML() {
    WriteLocation(LocationLine::ParseCatalog);
    if (machineType.empty() || parser.IsDataCollected()) {
        return;
    }
    parser.SetDataCollected(true);
    ReadCatalog(CatalogPath());
}

void BMCI2C_Test_Impl::ReadCatalog(const std::string& path) {
    const unsigned long size = TOSSpecific::GetFileSize(path);
    const std::unique_ptr<char[]> text(new (std::nothrow) char[size]);
    if (text == nullptr) {
        throw NQUVZDX20::TZDXException(NQUVZDX20::TZDXStatusCode::kOutOfMemory);
    }
    std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "r"));
    if (file == nullptr) {
        const int reason = errno;
        catalogTrouble = reason == ENOENT
                             ? run_trouble::CatalogMissing(path)
                             : run_trouble::CatalogUnreadable(path, platform::ReasonText(reason));
        return;
    }
    const std::size_t length = std::fread(text.get(), 1, size, file.get());
    std::error_code unknown;
    if (std::ferror(file.get()) != 0) {
        catalogTrouble = run_trouble::CatalogUnreadable(path, platform::ReasonText(errno));
    } else if (!std::filesystem::is_regular_file(path, unknown)) {
        catalogTrouble = run_trouble::CatalogUnreadable(path, "it is not a regular file");
    }
    file.reset();
    ParseCatalog(path, {text.get(), length});
}

// Remembers why the parse ended early, because the catalog is not read again.
void BMCI2C_Test_Impl::ParseCatalog(const std::string& path, std::span<char> text) {
    try {
        parser.Parse(text.data(), text.size());
    } catch (const IndexError& error) {
        catalogTrouble = run_trouble::CatalogIndex(path, error.Line(), error.Index());
        throw;
    }
    if (!parser.SyntaxError().empty() && !catalogTrouble) {
        catalogTrouble =
            run_trouble::CatalogSyntax(path, parser.GetCurLine(), parser.SyntaxError());
    }
}

std::string_view BMCI2C_Test_Impl::GenericType() const {
    return isOxcMachine ? GEN_MACHINE_TYPE_OXC : GEN_MACHINE_TYPE;
}

// Once an entry of this machine and a generic one are found, later entries are still looked at, but
// by their first machine type only.
bool BMCI2C_Test_Impl::IsMachineSupported() {
    WriteLocation(LocationLine::SupportCheckBegin);
    const auto entries = parser.GetMachineList();
    biosId = TOSSpecific::GetBiosID();
    if (biosId.empty() || biosId == kUnsetBiosId) {
        WriteOutput(kLogError, "Fail to read BiosID!");
    }
    const std::string_view genericType = GenericType();
    bool found = false;
    bool generic = false;
    for (const boost::shared_ptr<TMachine>& entry : entries) {
        for (const std::string& type : entry->GetMachineTypes()) {
            if (type == machineType || type == biosId) {
                machine = entry;
                found = true;
            }
            if (type == genericType) {
                genericMachine = entry;
                generic = true;
            }
            if (found && generic) {
                break;
            }
        }
    }
    if (!found || !generic) {
        WriteOutput(kLogError, "Neither Machine type nor Bios ID is supported.");
    }
    WriteLocation(LocationLine::SupportCheckEnd);
    return found;
}
