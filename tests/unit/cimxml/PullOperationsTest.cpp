#include "OperationsFixture.h"

namespace cimxml {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

// An operation that opens an enumeration, with its own parameters.
struct OpenCall {
    std::string operation;
    std::vector<Parameter> parameters;
};

Parameter NamedThing(const std::string& parameter) {
    return {parameter,
            host::ObjectPath{"", "T_Thing", {{"Name", {CMPI_string, std::string("one")}}}}};
}

const std::vector<OpenCall>& Openings() {
    static const std::vector<OpenCall> all = {
        {"OpenEnumerateInstances", {Class("T_Thing")}},
        {"OpenEnumerateInstancePaths", {Class("T_Thing")}},
        {"OpenAssociatorInstances",
         {NamedThing("InstanceName"), Class("T_Refused", "AssocClass"), {"Role", "From"}}},
        {"OpenAssociatorInstancePaths",
         {NamedThing("InstanceName"), Class("T_Refused", "AssocClass")}},
        {"OpenReferenceInstances", {NamedThing("InstanceName"), Class("T_Refused", "ResultClass")}},
        {"OpenReferenceInstancePaths",
         {NamedThing("InstanceName"), Class("T_Refused", "ResultClass")}},
    };
    return all;
}

class PullOperationsTest : public OperationsTest {
protected:
    std::string Open(const OpenCall& opening, const std::vector<Parameter>& more = {}) const {
        std::vector<Parameter> parameters = opening.parameters;
        parameters.insert(parameters.end(), more.begin(), more.end());
        return Call(opening.operation, parameters);
    }

    static Parameter Count(const std::string& count) { return {"MaxObjectCount", count}; }

    // The value of an output parameter; "NULL" for none.
    static std::string Out(const std::string& xml, const std::string& name) {
        const std::string begin = "<PARAMVALUE NAME=\"" + name + "\" PARAMTYPE=\"" +
                                  (name == "EndOfSequence" ? "boolean" : "string") + "\">";
        const auto at = xml.find(begin);
        if (at == std::string::npos) return "absent";
        const std::string rest = xml.substr(at + begin.size());
        if (!rest.starts_with("<VALUE>")) return "NULL";
        return rest.substr(7, rest.find("</VALUE>") - 7);
    }

    static std::string ContextIn(const std::string& xml) { return Out(xml, "EnumerationContext"); }

    std::string Pull(const std::string& operation, const std::string& context,
                     const std::string& count = "1") const {
        return Call(operation, {{"EnumerationContext", context}, Count(count)});
    }
};

TEST_F(PullOperationsTest, EverythingAtOnce_EndsTheSequence) {
    for (const OpenCall& opening : Openings()) {
        const std::string answer = Open(opening, {Count("10")});
        EXPECT_THAT(answer, StartsWith("<IRETURNVALUE><")) << opening.operation;
        EXPECT_EQ(Out(answer, "EndOfSequence"), "TRUE") << opening.operation;
        EXPECT_EQ(ContextIn(answer), "NULL") << opening.operation;
    }
}

TEST_F(PullOperationsTest, NothingAtFirst_IsTheDefault) {
    for (const OpenCall& opening : Openings()) {
        const std::string answer = Open(opening);
        EXPECT_THAT(answer, StartsWith("<IRETURNVALUE></IRETURNVALUE>")) << opening.operation;
        EXPECT_EQ(Out(answer, "EndOfSequence"), "FALSE") << opening.operation;
        EXPECT_EQ(ContextIn(answer).size(), 32U) << opening.operation;
    }
}

TEST_F(PullOperationsTest, InstancesWithPaths_ComePieceByPiece) {
    const std::string opened = Open(Openings()[0], {Count("1"), List({"Caption"})});
    EXPECT_THAT(opened, HasSubstr("<VALUE.INSTANCEWITHPATH><INSTANCEPATH><NAMESPACEPATH>"
                                  "<HOST>server:5988</HOST><LOCALNAMESPACEPATH>"));
    EXPECT_THAT(opened, HasSubstr("<INSTANCE CLASSNAME=\"T_Thing\"><PROPERTY NAME=\"Caption\" "
                                  "TYPE=\"string\"><VALUE>first</VALUE></PROPERTY></INSTANCE>"));
    const std::string next = Pull("PullInstancesWithPath", ContextIn(opened));
    EXPECT_THAT(All(next, "INSTANCE", "CLASSNAME"), ElementsAre("T_Thing"));
    EXPECT_THAT(next, HasSubstr("second"));
    EXPECT_EQ(Out(next, "EndOfSequence"), "FALSE");
    const std::string last = Pull("PullInstancesWithPath", ContextIn(next), "5");
    EXPECT_THAT(All(last, "INSTANCE", "CLASSNAME"), ElementsAre("T_Widget"));
    EXPECT_EQ(Out(last, "EndOfSequence"), "TRUE");
    EXPECT_THAT(ErrorIn(Pull("PullInstancesWithPath", ContextIn(opened))), StartsWith("21: "));
}

TEST_F(PullOperationsTest, Paths_ComePieceByPiece) {
    const std::string opened = Open(Openings()[1], {Count("2")});
    EXPECT_THAT(opened, StartsWith("<IRETURNVALUE><INSTANCEPATH><NAMESPACEPATH>"));
    EXPECT_THAT(All(opened, "INSTANCENAME", "CLASSNAME"), ElementsAre("T_Thing", "T_Thing"));
    const std::string kept = Pull("PullInstancePaths", ContextIn(opened), "0");
    EXPECT_THAT(All(kept, "INSTANCENAME", "CLASSNAME"), IsEmpty());
    EXPECT_EQ(ContextIn(kept), ContextIn(opened));
    EXPECT_THAT(All(Pull("PullInstancePaths", ContextIn(kept)), "INSTANCENAME", "CLASSNAME"),
                ElementsAre("T_Widget"));
}

TEST_F(PullOperationsTest, AssociatorsAndReferences_AreThoseOfTheOperationsWithoutPull) {
    const auto names = [&](const OpenCall& opening, const std::string& element) {
        return All(Open(opening, {Count("9")}), element, "CLASSNAME");
    };
    EXPECT_THAT(names(Openings()[2], "INSTANCE"), ElementsAre("T_Widget"));
    EXPECT_THAT(names(Openings()[3], "INSTANCENAME"), ElementsAre("T_Widget"));
    EXPECT_THAT(names(Openings()[4], "INSTANCE"), ElementsAre("T_Refused"));
    EXPECT_EQ(names(Openings()[5], "INSTANCENAME").front(), "T_Refused");
}

TEST_F(PullOperationsTest, ShallowInheritance_IsHonoured) {
    const OpenCall opening{"OpenEnumerateInstances",
                           {Class("T_Element"), Flag("DeepInheritance", false)}};
    EXPECT_THAT(Open(opening, {Count("9")}), Not(HasSubstr("NAME=\"U16\"")));
    EXPECT_THAT(Open(Openings()[0], {Count("9")}), HasSubstr("NAME=\"U16\""));
}

TEST_F(PullOperationsTest, EachKind_HasAPullOfItsOwn) {
    const std::string paths = ContextIn(Open(Openings()[1]));
    EXPECT_EQ(ErrorIn(Pull("PullInstancesWithPath", paths)),
              "21: The enumeration delivers other objects than this operation pulls.");
    EXPECT_EQ(ErrorIn(Pull("PullInstances", paths)),
              "21: The context '" + paths + "' is not that of a query's results.");
    EXPECT_EQ(ErrorIn(Pull("PullInstancePaths", paths)), "");
}

TEST_F(PullOperationsTest, ContextBelongsToItsNameSpace) {
    const std::string context = ContextIn(Open(Openings()[1]));
    EXPECT_EQ(ErrorIn(Call("PullInstancePaths", {{"EnumerationContext", context}, Count("1")},
                           "root/interop")),
              "21: No enumeration is open under the context '" + context +
                  "'. It may have ended, or timed out.");
}

TEST_F(PullOperationsTest, ClosedEnumeration_CannotBePulled) {
    const std::string context = ContextIn(Open(Openings()[0]));
    EXPECT_EQ(Call("CloseEnumeration", {{"EnumerationContext", context}}), "");
    EXPECT_THAT(ErrorIn(Pull("PullInstancesWithPath", context)), StartsWith("21: "));
    EXPECT_THAT(ErrorIn(Call("CloseEnumeration", {{"EnumerationContext", context}})),
                StartsWith("21: "));
}

TEST_F(PullOperationsTest, Filters_AreRefused) {
    for (const OpenCall& opening : Openings()) {
        EXPECT_EQ(ErrorIn(Open(opening, {{"FilterQueryLanguage", "DMTF:FQL"},
                                         {"FilterQuery", "Name = 'one'"}})),
                  "25: This server does not filter enumerations.");
        EXPECT_EQ(ErrorIn(Open(opening, {{"FilterQuery", "Name = 'one'"}})),
                  "4: A FilterQuery needs a FilterQueryLanguage.");
    }
}

TEST_F(PullOperationsTest, ContinuationOnError_IsRefused) {
    EXPECT_EQ(ErrorIn(Open(Openings()[0], {Flag("ContinueOnError", true)})),
              "26: This server ends an enumeration at its first error.");
    EXPECT_EQ(ErrorIn(Open(Openings()[0], {Flag("ContinueOnError", false)})), "");
}

TEST_F(PullOperationsTest, TimeoutOutOfRange_IsRefused) {
    for (const char* const seconds : {"0", "301", "4294967295"})
        EXPECT_EQ(ErrorIn(Open(Openings()[0], {{"OperationTimeout", seconds}})),
                  "22: The OperationTimeout must be 1 to 300 seconds.");
    for (const char* const seconds : {"1", "300"})
        EXPECT_EQ(ErrorIn(Open(Openings()[0], {{"OperationTimeout", seconds}})), "");
}

TEST_F(PullOperationsTest, CountThatIsNoNumber_IsInvalid) {
    for (const char* const count : {"", "-1", "1.5", "4294967296", "many"})
        EXPECT_EQ(ErrorIn(Open(Openings()[0], {Count(count)})),
                  "4: The parameter 'MaxObjectCount' is not a number from 0 to 4294967295.");
    EXPECT_EQ(ErrorIn(Call("PullInstancePaths", {{"EnumerationContext", "x"}})),
              "4: The parameter 'MaxObjectCount' is missing.");
    EXPECT_EQ(ErrorIn(Call("PullInstancePaths", {Count("1")})),
              "4: The parameter 'EnumerationContext' is missing.");
}

TEST_F(PullOperationsTest, FailureOfTheProvider_OpensNothing) {
    EXPECT_EQ(ErrorIn(Call("OpenEnumerateInstances", {Class("T_Broken")})),
              "1: The store is locked.");
    EXPECT_EQ(ErrorIn(Call("OpenEnumerateInstances", {Class("T_No")})),
              "5: There is no class 'T_No' in the namespace 'root/test'.");
    EXPECT_EQ(ErrorIn(Call("OpenAssociatorInstances", {})),
              "4: The parameter 'InstanceName' is missing.");
}

TEST_F(PullOperationsTest, OneOpenEnumerationTooMany_IsRefused) {
    std::string last;
    for (std::size_t count = 0; count < kMaxSessions; ++count)
        last = ContextIn(Open(Openings()[0]));
    EXPECT_THAT(ErrorIn(Open(Openings()[1])),
                StartsWith("27: This server keeps 64 enumerations open at most."));
    EXPECT_EQ(Out(Open(Openings()[1], {Count("100")}), "EndOfSequence"), "TRUE");
    EXPECT_EQ(Call("CloseEnumeration", {{"EnumerationContext", last}}), "");
    EXPECT_EQ(ErrorIn(Open(Openings()[1])), "");
}

TEST_F(PullOperationsTest, Queries_AreNotSupported) {
    EXPECT_EQ(ErrorIn(Call("OpenQueryInstances", {{"FilterQueryLanguage", "DMTF:CQL"}})),
              "7: This server has no operation 'OpenQueryInstances'.");
}

}  // namespace
}  // namespace cimxml
