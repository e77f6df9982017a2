#include <providers/QUVSG_BMCI2C_DiagnosticService_Provider.h>
#include <providers/Services.h>
#include <test/Globals_BMCI2C_Test.h>

void FillFromRegistry(EndpointList<QUVSG_BMCI2C_DiagnosticService>& services) {
    services.Clear();
    for (DiagService* test : Globals_BMCI2C_Test::Instance()->tests) {
        const cimple::String elementName = test->GetElementName();
        const cimple::String description = test->GetDescription();
        const cimple::String caption = test->GetCaption();
        services.Add(QUVSG_BMCI2C_DiagnosticService_Provider::BuildService(caption, description,
                                                                           elementName));
    }
}
