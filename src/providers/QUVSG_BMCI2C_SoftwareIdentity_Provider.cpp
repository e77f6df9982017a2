#include <providers/OneInstance.h>
#include <providers/QUVSG_BMCI2C_SoftwareIdentity_Provider.h>

int QUVSG_BMCI2C_SoftwareIdentity_Provider::enum_instances(
    const QUVSG_BMCI2C_SoftwareIdentity* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_SoftwareIdentity>* handler) {
    return EnumerateOne({"QUVSG_BMCI2C_SoftwareIdentity_Provider", " OK"}, handler,
                        BuildSoftwareIdentity);
}

QUVSG_BMCI2C_SoftwareIdentity* QUVSG_BMCI2C_SoftwareIdentity_Provider::BuildSoftwareIdentity() {
    auto* identity = cimple::create<QUVSG_BMCI2C_SoftwareIdentity>();
    identity->Caption = "QUVSG_BMCI2C_SoftwareIdentity";
    identity->Description = "QUVSG_BMCI2C_SoftwareIdentity";
    identity->ElementName = "QUVSG_BMCI2C_SoftwareIdentity";
    identity->Name = "QUVSG_CPUStressTest_SoftwareIdentity";  // clients know it by this name
    identity->OperationalStatus = {identity->OperationalStatus_OK};
    identity->StatusDescriptions = {"Status OK"};
    identity->Status = "OK";
    identity->InstanceID = "QUV : QUVSG_BMCI2C_SoftwareIdentity";
    identity->MajorVersion = 2;
    identity->MinorVersion = 10;
    identity->RevisionNumber = 1;
    identity->BuildNumber = 1;
    identity->VersionString = "2.10(1)T";
    identity->TargetOperatingSystems = {"Linux SUSE 10"};
    identity->Manufacturer = "QUV";
    identity->Languages = {"eng"};
    identity->Classifications = {identity->Classifications_ApplicationSoftware};
    identity->ClassificationDescriptions = {"Application Software"};
    identity->SerialNumber = "No Serial Number";
    identity->ReleaseDate = cimple::Datetime(0);
    return identity;
}
