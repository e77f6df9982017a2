// One bad file per message.
#include <gmock/gmock.h>
#include <platform/settings/Settings.h>
#include <platform/settings/SettingsError.h>

#include <functional>

#include "SettingsEnvironment.h"
#include "TemporaryFolder.h"

namespace {

using platform::SettingsError;

std::string ErrorOf(const std::function<void()>& read) {
    try {
        read();
    } catch (const SettingsError& error) {
        return error.what();
    }
    return "no error";
}

struct BadFile {
    const char* name;
    const char* text;
    const char* error;  // after the file's path
};

void PrintTo(const BadFile& file, std::ostream* out) { *out << file.name; }

std::string NameOf(const testing::TestParamInfo<BadFile>& instance) { return instance.param.name; }

class BadSettings : public testing::TestWithParam<BadFile> {};

TEST_P(BadSettings, NamesPlaceKeyAndWhatIsAllowed) {
    const TemporaryFolder folder;
    const SettingsEnvironment environment;
    folder.Write("profile.toml", "[[node]]\n");
    const std::string path = folder.Write("platform.toml", GetParam().text);
    environment.Set("BMCI2C_CONFIG", path);
    EXPECT_EQ(ErrorOf([] { platform::ReadSettings(); }), path + GetParam().error);
}

constexpr BadFile kBadSettings[] = {
    {"SyntaxError", "[machine]\ntype = \n",
     ":2:8: The file is not valid TOML: Error while parsing key-value pair: expected value, saw "
     "'\\n'."},
    {"KeyTwice", "[log]\nlevel = 1\nlevel = 2\n",
     ":3:9: The file is not valid TOML: Error while parsing key-value pair: cannot redefine "
     "existing "
     "integer 'level'."},
    {"NotUtf8", "[machine]\ntype = \"\xff\"\n",
     ":2:8: The file is not valid TOML: Encountered invalid utf-8 sequence."},
    {"IntegerTooLongForTheFormat", "[log]\nlevel = 99999999999999999999\n",
     ":2:29: The file is not valid TOML: Error while parsing decimal integer: "
     "'99999999999999999999' is not "
     "representable in 64 bits."},
    {"UnknownTable", "[machin]\ntype = \"7000\"\n",
     ":1:2: key 'machin': found an unknown key, allowed are cim, controller, controllers, "
     "diagnostics, log and machine."},
    {"UnknownKeyAtTheTop", "\nroot = \"/\"\n",
     ":2:1: key 'root': found an unknown key, allowed are cim, controller, controllers, "
     "diagnostics, log and machine."},
    {"UnknownKeyInMachine", "[machine]\n  typ = \"7000\"\n",
     ":2:3: key 'machine.typ': found an unknown key, allowed are bios_id, "
     "bios_id_source, type and type_source."},
    {"UnknownKeyInDiagnostics", "[diagnostics]\nroots = \"/\"\n",
     ":2:1: key 'diagnostics.roots': found an unknown key, allowed are oem_build and root."},
    {"UnknownKeyInCim", "[cim]\nderive = true\n",
     ":2:1: key 'cim.derive': found an unknown key, allowed is derive_associations."},
    {"DeriveAssociationsIsAString", "[cim]\nderive_associations = \"yes\"\n",
     ":2:23: key 'cim.derive_associations': found a string, allowed is true or false."},
    {"UnknownKeyInControllers", "[controllers]\nocx = true\n",
     ":2:1: key 'controllers.ocx': found an unknown key, allowed are oxc and time_limit."},
    {"UnknownKeyInLog", "[log]\nfile = \"x\"\n",
     ":2:1: key 'log.file': found an unknown key, allowed are level and sink."},
    {"TwoUnknownKeys_TheFirstOfTheFile", "[log]\nz = 1\na = 2\n",
     ":2:1: key 'log.z': found an unknown key, allowed are level and sink."},
    {"UnknownKeyByDottedName", "log.lvl = 1\n",
     ":1:5: key 'log.lvl': found an unknown key, allowed are level and sink."},
    {"SectionIsNoTable", "machine = \"7000\"\n",
     ":1:11: key 'machine': found a string, allowed is a table, written [machine]."},
    {"TypeIsAnInteger", "[machine]\ntype = 7000\n",
     ":2:8: key 'machine.type': found an integer, allowed is a string."},
    {"BiosIdIsABoolean", "[machine]\nbios_id = true\n",
     ":2:11: key 'machine.bios_id': found a boolean, allowed is a string."},
    {"TypeSourceIsAString", "[machine]\ntype_source = \"/sys\"\n",
     ":2:15: key 'machine.type_source': found a string, allowed is a table, written "
     "[machine.type_source]."},
    {"UnknownKeyInTypeSource", "[machine.type_source]\nname = \"product_name\"\n",
     ":2:1: key 'machine.type_source.name': found an unknown key, allowed are file, folder, "
     "pattern "
     "and replacement."},
    {"FolderIsAnArray", "[machine.bios_id_source]\nfolder = []\n",
     ":2:10: key 'machine.bios_id_source.folder': found an array, allowed is a string."},
    {"FileIsEmpty", "[machine.bios_id_source]\nfile = \"\"\n",
     ":2:8: key 'machine.bios_id_source.file': found an empty string, allowed is a string with at "
     "least one character."},
    {"PatternIsNone", "[machine.type_source]\npattern = \"^QUV-([0-9]+\"\n",
     ":2:11: key 'machine.type_source.pattern': found \"^QUV-([0-9]+\" (Unmatched ( or \\(), "
     "allowed is an extended regular expression, as of grep -E."},
    {"PatternIsAnInteger", "[machine.type_source]\npattern = 7000\n",
     ":2:11: key 'machine.type_source.pattern': found an integer, allowed is a string."},
    {"ReplacementWithoutAPattern", "[machine.type_source]\nreplacement = \"7000\"\n",
     ":2:15: key 'machine.type_source.replacement': found a replacement without a pattern, allowed "
     "is a replacement beside the key pattern; add that key."},
    {"ReplacementOfAGroupThatThePatternLacks",
     "[machine.type_source]\npattern = \"x\"\nreplacement = '\\1'\n",
     ":3:15: key 'machine.type_source.replacement': found \"\\1\" (the pattern has no group 1), "
     "allowed is a text in which \\0 stands for what the pattern finds, \\1 to \\9 for its groups, "
     "and \\\\ for a backslash."},
    {"RootIsEmpty", "[diagnostics]\nroot = \"\"\n",
     ":2:8: key 'diagnostics.root': found an empty string, allowed is a string with at least one "
     "character."},
    {"OemBuildIsAString", "[diagnostics]\noem_build = \"no\"\n",
     ":2:13: key 'diagnostics.oem_build': found a string, allowed is true or false."},
    {"OxcIsADate", "[controllers]\noxc = 2024-05-31\n",
     ":2:7: key 'controllers.oxc': found a date, allowed is true, false, or an array of tables "
     "{ manufacturer = N, product = N }."},
    {"OxcIsATime", "[controllers]\noxc = 12:00:00\n",
     ":2:7: key 'controllers.oxc': found a time, allowed is true, false, or an array of tables "
     "{ manufacturer = N, product = N }."},
    {"OxcIsADateTime", "[controllers]\noxc = 2024-05-31T12:00:00\n",
     ":2:7: key 'controllers.oxc': found a date-time, allowed is true, false, or an array of "
     "tables { manufacturer = N, product = N }."},
    {"OxcIsAListOfNumbers", "[controllers]\noxc = [32473]\n",
     ":2:8: key 'controllers.oxc[0]': found an integer, allowed is a table."},
    {"OxcProductWithoutAManufacturer", "[controllers]\noxc = [{ product = 7 }]\n",
     ":2:8: key 'controllers.oxc[0].manufacturer': found nothing, allowed is an integer from 0 to "
     "1048575; add this key."},
    {"OxcManufacturerWithoutAProduct",
     "[controllers]\noxc = [{ manufacturer = 1, product = 2 }, { manufacturer = 1 }]\n",
     ":2:43: key 'controllers.oxc[1].product': found nothing, allowed is an integer from 0 to "
     "65535; add this key."},
    {"OxcManufacturerTooHigh", "[controllers]\noxc = [{ manufacturer = 1048576, product = 1 }]\n",
     ":2:25: key 'controllers.oxc[0].manufacturer': found 1048576, allowed is an integer from 0 to "
     "1048575."},
    {"OxcProductTooHigh", "[controllers]\noxc = [{ manufacturer = 1, product = 65536 }]\n",
     ":2:38: key 'controllers.oxc[0].product': found 65536, allowed is an integer from 0 to "
     "65535."},
    {"OxcProductIsAString", "[controllers]\noxc = [{ manufacturer = 1, product = \"2\" }]\n",
     ":2:38: key 'controllers.oxc[0].product': found a string, allowed is an integer from 0 to "
     "65535."},
    {"UnknownKeyInOxc", "[controllers]\noxc = [{ manufacturer = 1, product = 2, name = \"x\" }]\n",
     ":2:41: key 'controllers.oxc[0].name': found an unknown key, allowed are manufacturer and "
     "product."},
    {"TimeLimitOfAControllerTooLong",
     "[[controller]]\ntransport = \"inband\"\ndevice = \"/dev/ipmi0\"\ntime_limit = 61\n",
     ":4:14: key 'controller[0].time_limit': found 61, allowed is an integer from 1 to 60."},
    {"TimeLimitOfASimulatedController",
     "[[controller]]\ntransport = \"simulated\"\nprofile = \"profile.toml\"\ntime_limit = 1\n",
     ":4:1: key 'controller[0].time_limit': found an unknown key, allowed are profile and "
     "transport."},
    {"TimeLimitIsAFloat", "[controllers]\ntime_limit = 4.0\n",
     ":2:14: key 'controllers.time_limit': found a floating-point number, allowed is an integer "
     "from 1 to 60."},
    {"TimeLimitTooShort", "[controllers]\ntime_limit = 0\n",
     ":2:14: key 'controllers.time_limit': found 0, allowed is an integer from 1 to 60."},
    {"TimeLimitTooLong", "[controllers]\ntime_limit = 61\n",
     ":2:14: key 'controllers.time_limit': found 61, allowed is an integer from 1 to 60."},
    {"UnknownSink", "[log]\nsink = \"journal\"\n",
     ":2:8: key 'log.sink': found \"journal\", allowed are \"syslog\", \"stderr\", \"none\", "
     "\"file:PATH\" and \"json:PATH\"."},
    {"SinkWithoutAPath", "[log]\nsink = \"json:\"\n",
     ":2:8: key 'log.sink': found \"json:\", allowed are \"syslog\", \"stderr\", \"none\", "
     "\"file:PATH\" and \"json:PATH\"."},
    {"SinkIsAnInteger", "[log]\nsink = 2\n",
     ":2:8: key 'log.sink': found an integer, allowed is a string."},
    {"LevelTooLow", "[log]\nlevel = -1\n",
     ":2:9: key 'log.level': found -1, allowed is an integer from 0 to 4."},
    {"LevelTooHigh", "[log]\nlevel = 5\n",
     ":2:9: key 'log.level': found 5, allowed is an integer from 0 to 4."},
    {"ControllerIsATable", "[controller]\ntransport = \"inband\"\n",
     ":1:1: key 'controller': found a table, allowed is an array of tables, each written "
     "[[controller]]."},
    {"ControllerIsAnArrayOfNumbers", "controller = [1]\n",
     ":1:15: key 'controller[0]': found an integer, allowed is a table."},
    {"NoTransport", "[[controller]]\ndevice = \"/dev/ipmi0\"\n",
     ":1:1: key 'controller[0].transport': found nothing, allowed are \"inband\", \"lan\" and "
     "\"simulated\"; add this key."},
    {"UnknownTransport", "[[controller]]\ntransport = \"serial\"\n",
     ":2:13: key 'controller[0].transport': found \"serial\", allowed are \"inband\", \"lan\" and "
     "\"simulated\"."},
    {"TransportIsABoolean", "[[controller]]\ntransport = true\n",
     ":2:13: key 'controller[0].transport': found a boolean, allowed are \"inband\", \"lan\" and "
     "\"simulated\"."},
    {"InBandWithoutADevice", "[[controller]]\ntransport = \"inband\"\n",
     ":1:1: key 'controller[0].device': found nothing, allowed is the path of a device, such as "
     "\"/dev/ipmi0\"; add this key."},
    {"InBandWithAKeyOfLan",
     "[[controller]]\ntransport = \"inband\"\ndevice = \"/dev/ipmi0\"\nhost = \"bmc\"\n",
     ":4:1: key 'controller[0].host': found an unknown key, allowed are device, time_limit and "
     "transport."},
    {"LanWithoutAHost",
     "[[controller]]\ntransport = \"inband\"\ndevice = \"/dev/ipmi0\"\n[[controller]]\n"
     "transport = \"lan\"\n",
     ":4:1: key 'controller[1].host': found nothing, allowed is the name or the address of the "
     "controller; add this key."},
    {"LanWithAPasswordInTheFile",
     "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\npassword = \"secret\"\n",
     ":4:1: key 'controller[0].password': found an unknown key, allowed are cipher_suite, host, "
     "k_g_file, password_file, port, privilege_level, protocol, time_limit, transport, user and "
     "workarounds."},
    {"HostIsEmpty", "[[controller]]\ntransport = \"lan\"\nhost = \"\"\n",
     ":3:8: key 'controller[0].host': found an empty string, allowed is a string with at least one "
     "character."},
    {"PortTooLow", "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\nport = 0\n",
     ":4:8: key 'controller[0].port': found 0, allowed is an integer from 1 to 65535."},
    {"PortTooHigh", "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\nport = 65536\n",
     ":4:8: key 'controller[0].port': found 65536, allowed is an integer from 1 to 65535."},
    {"UserIsAnInteger", "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\nuser = 1\n",
     ":4:8: key 'controller[0].user': found an integer, allowed is a string."},
    {"UserTooLong",
     "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\nuser = \"seventeen-letters\"\n",
     ":4:8: key 'controller[0].user': found a string of 17 bytes, allowed is a string of at most "
     "16."},
    {"PasswordFileIsEmpty",
     "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\npassword_file = \"\"\n",
     ":4:17: key 'controller[0].password_file': found an empty string, allowed is a string with at "
     "least one character."},
    {"KeyFileIsEmpty", "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\nk_g_file = \"\"\n",
     ":4:12: key 'controller[0].k_g_file': found an empty string, allowed is a string with at "
     "least "
     "one character."},
    {"UnknownProtocol", "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\nprotocol = \"3.0\"\n",
     ":4:12: key 'controller[0].protocol': found \"3.0\", allowed are \"2.0\" and \"1.5\"."},
    {"ProtocolIsANumber", "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\nprotocol = 2.0\n",
     ":4:12: key 'controller[0].protocol': found a floating-point number, allowed are \"2.0\" and "
     "\"1.5\"."},
    {"CipherSuiteTooLow",
     "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\ncipher_suite = -1\n",
     ":4:16: key 'controller[0].cipher_suite': found -1, allowed is an integer from 0 to 17."},
    {"CipherSuiteTooHigh",
     "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\ncipher_suite = 18\n",
     ":4:16: key 'controller[0].cipher_suite': found 18, allowed is an integer from 0 to 17."},
    {"CipherSuiteThatFreeIpmiLacks",
     "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\ncipher_suite = 4\n",
     ":4:16: key 'controller[0].cipher_suite': found 4, allowed are 0 to 3, 6 to 8, 11, 12 and 15 "
     "to 17, which FreeIPMI supports."},
    {"UnknownPrivilegeLevel",
     "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\nprivilege_level = \"root\"\n",
     ":4:19: key 'controller[0].privilege_level': found \"root\", allowed are \"user\", "
     "\"operator\" and \"administrator\"."},
    {"WorkaroundsIsAString",
     "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\nworkarounds = \"sun20\"\n",
     ":4:15: key 'controller[0].workarounds': found a string, allowed is an array."},
    {"UnknownWorkaround",
     "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\nworkarounds = [\"sun20\", \"moon\"]\n",
     ":4:25: key 'controller[0].workarounds[1]': found \"moon\", allowed are \"authcap\", "
     "\"integritycheckvalue\", \"intel20\", \"nochecksumcheck\", \"opensesspriv\", \"sun20\" and "
     "\"supermicro20\"."},
    {"WorkaroundOfTheOtherProtocol",
     "[[controller]]\ntransport = \"lan\"\nhost = \"bmc\"\nprotocol = \"1.5\"\nworkarounds = "
     "[\"sun20\"]\n",
     ":5:16: key 'controller[0].workarounds[0]': found \"sun20\", allowed are \"authcap\", "
     "\"endianseq\", \"forcepermsg\", \"idzero\", \"noauthcodecheck\", \"nochecksumcheck\" and "
     "\"unexpectedauth\"."},
    {"SimulatedWithoutAProfile", "[[controller]]\ntransport = \"simulated\"\n",
     ":1:1: key 'controller[0].profile': found nothing, allowed is the path of a simulated "
     "machine's profile; add this key."},
    {"ProfileThatIsNotThere",
     "[[controller]]\ntransport = \"simulated\"\nprofile = \"absent.toml\"\n",
     ":3:11: key 'controller[0].profile': found \"absent.toml\" (No such file or directory), "
     "allowed is the path of a file that can be read."},
    {"ProfileWithoutTheControllersNode",
     "[[controller]]\ntransport = \"simulated\"\nprofile = \"/dev/null\"\n",
     ":3:11: key 'controller[0].profile': found a profile with this number of [[node]] tables: 0, "
     "allowed is a profile with one for this controller, the number of which is 0, counted from "
     "0."},
};

INSTANTIATE_TEST_SUITE_P(Files, BadSettings, testing::ValuesIn(kBadSettings), NameOf);

class BadProfile : public testing::TestWithParam<BadFile> {};

TEST_P(BadProfile, NamesPlaceKeyAndWhatIsAllowed) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("profile.toml", GetParam().text);
    EXPECT_EQ(ErrorOf([&] { platform::ReadSimulatedProfile(path); }), path + GetParam().error);
}

constexpr BadFile kBadProfiles[] = {
    {"SyntaxError", "machine_type \"7000\"\n",
     ":1:14: The file is not valid TOML: Error while parsing key-value pair: expected '=', saw "
     "'\"'."},
    {"UnknownKey", "machine = \"7000\"\n",
     ":1:1: key 'machine': found an unknown key, allowed are bios_id, generation, machine_type, "
     "node, oem_build and oxc."},
    {"MachineTypeIsAnInteger", "machine_type = 7000\n",
     ":1:16: key 'machine_type': found an integer, allowed is a string."},
    {"BiosIdIsATable", "[bios_id]\n", ":1:1: key 'bios_id': found a table, allowed is a string."},
    {"OxcIsAnInteger", "oxc = 1\n", ":1:7: key 'oxc': found an integer, allowed is true or false."},
    {"OemBuildIsAString", "oem_build = \"true\"\n",
     ":1:13: key 'oem_build': found a string, allowed is true or false."},
    {"GenerationTooLow", "generation = 0\n",
     ":1:14: key 'generation': found 0, allowed is an integer from 1 to 2."},
    {"GenerationTooHigh", "generation = 3\n",
     ":1:14: key 'generation': found 3, allowed is an integer from 1 to 2."},
    {"NodeIsATable", "[node]\n",
     ":1:1: key 'node': found a table, allowed is an array of tables, each written [[node]]."},
    {"UnknownKeyInANode", "[[node]]\n[[node]]\nbytes = []\n",
     ":3:1: key 'node[1].bytes': found an unknown key, allowed are answers, "
     "answers_device_id, answers_generation, busy, completion_code, data, "
     "generation_completion_code, length and present."},
    {"DataIsAString", "[[node]]\ndata = \"00\"\n",
     ":2:8: key 'node[0].data': found a string, allowed is an array."},
    {"DataByteIsAString", "[[node]]\ndata = [0, \"1\"]\n",
     ":2:12: key 'node[0].data[1]': found a string, allowed is an integer from 0 to 255."},
    {"DataByteTooHigh", "[[node]]\ndata = [\n  0,\n  256,\n]\n",
     ":4:3: key 'node[0].data[1]': found 256, allowed is an integer from 0 to 255."},
    {"DataByteTooLow", "[[node]]\ndata = [-1]\n",
     ":2:9: key 'node[0].data[0]': found -1, allowed is an integer from 0 to 255."},
    {"CompletionCodeTooHigh", "[[node]]\ncompletion_code = 256\n",
     ":2:19: key 'node[0].completion_code': found 256, allowed is an integer from 0 to 255."},
    {"CompletionCodeTooLow", "[[node]]\ncompletion_code = -1\n",
     ":2:19: key 'node[0].completion_code': found -1, allowed is an integer from 0 to 255."},
    {"BusyTooLow", "[[node]]\nbusy = -1\n",
     ":2:8: key 'node[0].busy': found -1, allowed is an integer from 0 to 2147483647."},
    {"BusyTooHigh", "[[node]]\nbusy = 2147483648\n",
     ":2:8: key 'node[0].busy': found 2147483648, allowed is an integer from 0 to 2147483647."},
    {"BusyIsABoolean", "[[node]]\nbusy = true\n",
     ":2:8: key 'node[0].busy': found a boolean, allowed is an integer from 0 to 2147483647."},
    {"LengthTooLow", "[[node]]\nlength = -2147483649\n",
     ":2:10: key 'node[0].length': found -2147483649, allowed is an integer from -2147483648 to "
     "2147483647."},
    {"LengthTooHigh", "[[node]]\nlength = 2147483648\n",
     ":2:10: key 'node[0].length': found 2147483648, allowed is an integer from -2147483648 to "
     "2147483647."},
    {"AnswersIsAnInteger", "[[node]]\nanswers = 0\n",
     ":2:11: key 'node[0].answers': found an integer, allowed is true or false."},
    {"PresentIsAString", "[[node]]\npresent = \"no\"\n",
     ":2:11: key 'node[0].present': found a string, allowed is true or false."},
};

INSTANTIATE_TEST_SUITE_P(Files, BadProfile, testing::ValuesIn(kBadProfiles), NameOf);

class UnreadableSettings : public testing::Test {
protected:
    const TemporaryFolder folder;
    const SettingsEnvironment environment;
};

TEST_F(UnreadableSettings, FileThatIsNotThere_IsAnError) {
    const std::string path = folder.File("absent.toml");
    for (const char* variable : {"BMCI2C_SIMULATE", "BMCI2C_CONFIG"}) {
        environment.Set(variable, path);
        EXPECT_EQ(ErrorOf([] { platform::ReadSettings(); }),
                  path + ": The file cannot be read: No such file or directory.");
        environment.Set(variable, "");
    }
}

std::string AdviceFor(const std::function<void()>& read) {
    try {
        read();
    } catch (const platform::SettingsError& error) {
        return error.Advice();
    }
    return "no error";
}

TEST_F(UnreadableSettings, Advice_IsAboutWhatIsWrong) {
    const auto read = [] { platform::ReadSettings(); };
    environment.Set("BMCI2C_CONFIG", folder.File("absent.toml"));
    EXPECT_EQ(AdviceFor(read), "Give an existing, readable file.");
    environment.Set("BMCI2C_CONFIG", folder.Write("syntax.toml", "[machine\n"));
    EXPECT_EQ(AdviceFor(read),
              "Fix the file at this line and column; texts stand between quotation marks.");
    environment.Set("BMCI2C_CONFIG", folder.Write("value.toml", "[log]\nlevel = 9\n"));
    EXPECT_EQ(AdviceFor(read), "Correct it; docs/platform-settings.md explains every key.");
    EXPECT_EQ(platform::ReadSettingsOrProblem().problemAdvice, AdviceFor(read));
}

TEST_F(UnreadableSettings, Folder_IsAnError) {
    environment.Set("BMCI2C_CONFIG", folder.File(""));
    EXPECT_EQ(ErrorOf([] { platform::ReadSettings(); }),
              folder.File("") + ": The file cannot be read: Is a directory.");
}

TEST_F(UnreadableSettings, BadProfileOfAController_IsNamedByItsOwnFileAndLine) {
    folder.Write("profile.toml", "\noxc = 1\n");
    environment.Set(
        "BMCI2C_CONFIG",
        folder.Write("platform.toml",
                     "[[controller]]\ntransport = \"simulated\"\nprofile = \"profile.toml\"\n"));
    EXPECT_EQ(ErrorOf([] { platform::ReadSettings(); }),
              folder.File("profile.toml") +
                  ":2:7: key 'oxc': found an integer, allowed is true or false.");
}

TEST_F(UnreadableSettings, UnknownLog_NamesTheVariable) {
    for (const std::string log : {"journal", "file:", "json:", "file", "SYSLOG", "syslog:x"}) {
        environment.Set("BMCI2C_LOG", log);
        EXPECT_EQ(ErrorOf([] { platform::ReadSettings(); }),
                  "BMCI2C_LOG: found \"" + log +
                      "\", allowed are \"syslog\", \"stderr\", \"none\", \"file:PATH\" and "
                      "\"json:PATH\".");
    }
}

TEST_F(UnreadableSettings, BadLogLevel_NamesTheVariable) {
    for (const std::string level : {"-1", "5", "two", "2 ", " 2", "+2", "2.0", "99999999999"}) {
        environment.Set("BMCI2C_LOG_LEVEL", level);
        EXPECT_EQ(ErrorOf([] { platform::ReadSettings(); }),
                  "BMCI2C_LOG_LEVEL: found \"" + level + "\", allowed is an integer from 0 to 4.");
    }
}

}  // namespace
