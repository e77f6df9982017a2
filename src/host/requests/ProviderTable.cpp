#include <host/requests/ProviderCall.h>
#include <host/requests/ProviderTable.h>

namespace host {

namespace {

constexpr const char* kNoNameSpace = "";

// Marks work in progress until the scope ends, even by an exception.
class Marked {
public:
    explicit Marked(bool& flag) : mark(flag) { mark = true; }
    ~Marked() { mark = false; }
    Marked(const Marked&) = delete;
    Marked& operator=(const Marked&) = delete;

private:
    bool& mark;
};

}  // namespace

template <class Interface>
Interface& ProviderTable::Get(const std::string& provider) {
    const std::lock_guard lock(mutex);
    Slot<Interface>& slot = std::get<Slots<Interface>>(slots)[provider];
    if (slot.isBeingMade)
        throw Failure(CMPI_RC_ERR_FAILED,
                      "The provider '" + provider + "' was asked while its factory runs.");
    if (!slot.made) {
        const Marked marked(slot.isBeingMade);
        slot.made = MakeInterface<Interface>(provider);
    }
    return *slot.made;
}

template CMPIInstanceMI& ProviderTable::Get<CMPIInstanceMI>(const std::string&);
template CMPIMethodMI& ProviderTable::Get<CMPIMethodMI>(const std::string&);
template CMPIAssociationMI& ProviderTable::Get<CMPIAssociationMI>(const std::string&);

template <class Interface>
Interface* ProviderTable::MakeInterface(const std::string& provider) const {
    const ProviderCall call(classes, ClientContext(kNoNameSpace), provider, CMPI_null);
    const auto factory = FindFactory<Interface>(module, provider);
    Interface* made = nullptr;
    call.Run([&] {
        CMPIStatus status{CMPI_RC_OK, nullptr};
        made = factory(&broker, call.Context(), &status);
        return status;
    });
    if (!made || !made->ft)
        throw Failure(CMPI_RC_ERR_FAILED, "The function '" + provider +
                                              InterfaceKind<Interface>::kSuffix +
                                              "' yields no interface.");
    return made;
}

void ProviderTable::CleanUp() {
    CleanUpAll(std::get<Slots<CMPIInstanceMI>>(slots));
    CleanUpAll(std::get<Slots<CMPIMethodMI>>(slots));
    CleanUpAll(std::get<Slots<CMPIAssociationMI>>(slots));
}

template <class Interface>
void ProviderTable::CleanUpAll(const Slots<Interface>& all) {
    constexpr CMPIBoolean kTerminating = 1;
    for (const auto& [provider, slot] : all) {
        if (!slot.made) continue;
        const ProviderCall call(classes, ClientContext(kNoNameSpace), provider, CMPI_null);
        try {
            call.Run([&, made = slot.made] {
                return Implemented(made->ft->cleanup)(made, call.Context(), kTerminating);
            });
        } catch (const Failure& failure) {
            const CMPIrc code = failure.status.code;
            if (code == CMPI_RC_DO_NOT_UNLOAD || code == CMPI_RC_NEVER_UNLOAD)
                module.KeepLoaded();
            else if (sink)
                sink({CMPI_SEV_ERROR, provider, failure.status.text});
        }
    }
}

}  // namespace host
