#include <cli/completion/SchemaWords.h>
#include <host/loading/RegistrationsFile.h>
#include <mof/Reader.h>

#include <exception>
#include <utility>

namespace cli {

namespace {

// Errors are ignored: completion has no way to report them.
template <class Read>
std::vector<std::string> NamesOrNone(const Read& read) {
    try {
        std::vector<std::string> names;
        read(names);
        return names;
    } catch (const std::exception&) {
        return {};
    }
}

// The members of a class that `allMembers` lists.
template <class AllMembers>
std::vector<std::string> MembersOf(const std::string& file, const std::string& className,
                                   const AllMembers& allMembers) {
    return NamesOrNone([&](std::vector<std::string>& names) {
        const mof::Schema schema = mof::ReadFile(file);
        const mof::Class* const cls = schema.Find(className);
        if (cls == nullptr) return;
        for (const auto& one : allMembers(schema, *cls)) names.push_back(one.member->name);
    });
}

}  // namespace

SchemaWords::SchemaWords(host::HostFiles itsFiles) : files(std::move(itsFiles)) {}

std::vector<std::string> SchemaWords::Classes() const {
    return NamesOrNone([this](std::vector<std::string>& names) {
        for (const host::Registration& one : host::ReadRegistrations(files.registrations))
            names.push_back(one.className);
    });
}

std::vector<std::string> SchemaWords::Methods(const std::string& className) const {
    return MembersOf(files.schema, className, mof::AllMethods);
}

std::vector<std::string> SchemaWords::Properties(const std::string& className) const {
    return MembersOf(files.schema, className, mof::AllProperties);
}

}  // namespace cli
