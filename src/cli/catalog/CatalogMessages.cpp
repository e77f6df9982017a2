#include <cli/Errors.h>
#include <cli/ScopedVariable.h>
#include <cli/catalog/CatalogMessages.h>
#include <cli/catalog/CatalogReader.h>
#include <cli/catalog/UsedNumbers.h>
#include <platform/settings/FileText.h>
#include <test/CatalogTexts.h>
#include <test/MachineTypes.h>
#include <test/MessageNumbers.h>

#include <limits>
#include <map>
#include <set>

namespace cli {

namespace {

using Machines = std::map<std::string, const TMachine*>;
using TextSource = CatalogTexts::Source;

void UseBuild(bool isOem) {
    platform::Settings settings;
    settings.log.value = "none";
    settings.oemBuild.value = isOem;
    platform::UseSettings(std::move(settings));
}

// If entries have the same type, the last one counts.
Machines ByType(const std::list<boost::shared_ptr<TMachine>>& entries) {
    Machines machines;
    for (const auto& entry : entries)
        for (const std::string& type : entry->GetMachineTypes()) machines[type] = entry.get();
    return machines;
}

int KindOf(unsigned short number) {
    if (number == kPassed) return kPassMessage;
    return number >= kFirstBus ? kBusFaultMessage : kNotCompletedMessage;
}

// What the test may say of the machine: all results, and the busses that have a text.
std::set<unsigned short> NumbersFor(const TMachine& machine, const TMachine& generic) {
    std::set<unsigned short> numbers;
    for (const unsigned short number : RequiredNumbers())
        if (!IsHeading(number) && number != kFallbackText) numbers.insert(number);
    for (const TMachine* entry : {&machine, &generic})
        for (const auto& [number, text] : entry->GetMessege().GetValueMap())
            if (number >= kFirstBus) numbers.insert(number);
    return numbers;
}

MachineMessages Messages(const std::string& type, const TMachine& machine, const TMachine& generic,
                         const std::string& genericType) {
    const CatalogTexts texts(machine, generic);
    const auto name = [&](TextSource source) {
        if (source == TextSource::Fallback) return std::string("fallback text");
        return source == TextSource::Machine ? machine.GetMachineTypes().front() : genericType;
    };
    MachineMessages all{type, {}};
    for (const unsigned short number : NumbersFor(machine, generic)) {
        const ResultMessage message = texts.Message(KindOf(number), number, 1);
        all.messages.push_back(
            {number, message.line, name(texts.SourceOfText(number)), message.recommendations,
             message.recommendations.empty() ? "" : name(texts.SourceOfRecommendations(number))});
    }
    return all;
}

}  // namespace

std::vector<MachineMessages> CatalogMachines(const std::string& path, const CatalogUse& use) {
    const ScopedVariable silence = SilentLog();
    UseBuild(use.isOem);
    CatalogReader reader;
    reader.Read(platform::ReadFileText(path, std::numeric_limits<std::size_t>::max()));
    const Machines machines = ByType(reader.GetMachineList());
    const std::string genericType(use.isOxc ? GEN_MACHINE_TYPE_OXC : GEN_MACHINE_TYPE);
    const auto generic = machines.find(genericType);
    if (generic == machines.end())
        throw CommandError({path + " has no entry " + genericType + ".",
                            "Use 'bmci2c catalog check' to see what is wrong."});
    std::vector<MachineMessages> all;
    for (const auto& [type, machine] : machines)
        if (type != GEN_MACHINE_TYPE && type != GEN_MACHINE_TYPE_OXC)
            all.push_back(Messages(type, *machine, *generic->second, genericType));
    return all;
}

}  // namespace cli
