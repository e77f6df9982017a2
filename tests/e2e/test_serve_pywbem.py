"""pywbem as a client of `bmci2c serve`."""

import time
from concurrent.futures import ThreadPoolExecutor

import pytest
from conftest import JOB, RECORD, SERVICE, passed
from serving import INTEROP, NAMESPACE

TEST_NAME = "BMC I2C Test"
PREFIX = "QUVSG_BMCI2C_"
# What an association with instances ties to what, by its references.
LINKS = {
    "AffectedJobElement": ("AffectedElement", "AffectingElement"),
    "AvailableDiagnosticService": ("ServiceProvided", "UserOfService"),
    "ElementSetting": ("Element", "Setting"),
    "OwningJobElement": ("OwningElement", "OwnedElement"),
    "RecordAppliesToElement": ("Record", "Element"),
    "UseOfLog": ("Antecedent", "Dependent"),
}


@pytest.fixture
def pywbem():
    import pywbem  # of the virtual environment that `./dev test` makes

    return pywbem


@pytest.fixture
def connection(pywbem, server):
    with pywbem.WBEMConnection(server.base_url, default_namespace=NAMESPACE) as made:
        yield made


def service_path(pywbem, name=TEST_NAME, cls=SERVICE, **keys):
    return pywbem.CIMInstanceName(cls, {"Name": name, **keys}, namespace=NAMESPACE)


def run(pywbem, connection, **arguments):
    return connection.InvokeMethod("RunDiagnostic", service_path(pywbem), **arguments)


@pytest.fixture
def own_classes(connection):
    """The module's classes, with what they inherit."""
    every = connection.EnumerateClasses(DeepInheritance=True, LocalOnly=False)
    return [cls for cls in every if PREFIX in cls.classname]


def some_path(pywbem, cls):
    """A path that has every key of the class."""

    def value(declared):
        if declared.type != "reference":
            return TEST_NAME
        return pywbem.CIMInstanceName(declared.reference_class, {}, namespace=NAMESPACE)

    declarations = cls.properties.values()
    keys = {one.name: value(one) for one in declarations if "Key" in one.qualifiers}
    return pywbem.CIMInstanceName(cls.classname, keys, namespace=NAMESPACE)


def status_of(pywbem, call):
    with pytest.raises(pywbem.CIMError) as raised:
        call()
    return raised.value.status_code


def test_server_and_its_namespaces_are_discovered(pywbem, connection):
    server = pywbem.WBEMServer(connection)
    assert server.interop_ns == INTEROP
    assert sorted(server.namespaces) == [NAMESPACE, INTEROP]
    manager = server.cimom_inst
    assert (manager["Name"], manager.classname) == ("bmci2c", "CIM_ObjectManager")
    assert f'bmci2c {manager["Version"]}' == "bmci2c 1.0.0"


def test_instance_of_the_server_is_got(connection):
    for path in connection.EnumerateInstanceNames("CIM_ManagedElement", namespace=INTEROP):
        assert connection.GetInstance(path).path.keybindings == path.keybindings


@pytest.mark.parametrize("namespace", [NAMESPACE, INTEROP])
def test_every_class_is_got(connection, namespace):
    names = connection.EnumerateClassNames(namespace=namespace, DeepInheritance=True)
    classes = connection.EnumerateClasses(
        namespace=namespace, DeepInheritance=True, LocalOnly=False, IncludeClassOrigin=True
    )
    assert [cls.classname for cls in classes] == names
    assert len(names) == len(set(names)) > 30
    for cls in classes:
        got = connection.GetClass(
            cls.classname, namespace=namespace, LocalOnly=False, IncludeClassOrigin=True
        )
        assert got == cls


def test_class_tree_is_walked(connection):
    below = connection.EnumerateClassNames(ClassName="cim_diagnosticservice")
    assert below == [SERVICE]
    assert SERVICE not in connection.EnumerateClassNames()


def test_class_says_what_it_inherits(connection):
    cls = connection.GetClass(SERVICE, LocalOnly=False, IncludeClassOrigin=True)
    assert cls.superclass == "CIM_DiagnosticService"
    assert cls.properties["Name"].qualifiers["Key"].value is True
    assert cls.properties["Name"].class_origin == "CIM_ManagedSystemElement"
    assert cls.properties["Name"].propagated
    method = cls.methods["RunDiagnostic"]
    assert (method.return_type, method.class_origin) == ("uint32", "CIM_DiagnosticService")
    assert method.parameters["Job"].reference_class == "CIM_ConcreteJob"
    assert method.parameters["Job"].qualifiers["Out"].value is True
    assert connection.GetClass(SERVICE).properties == {}
    assert connection.GetClass(SERVICE, IncludeQualifiers=False).qualifiers == {}


def test_qualifiers_are_got(connection):
    declared = connection.EnumerateQualifiers()
    assert "Key" in [qualifier.name for qualifier in declared]
    for qualifier in declared:
        assert connection.GetQualifier(qualifier.name) == qualifier


def test_every_class_and_base_class_is_enumerated(pywbem, connection):
    run(pywbem, connection)
    classes = {
        cls.classname: cls for cls in connection.EnumerateClasses(DeepInheritance=True)
    }
    own = {name: connection.EnumerateInstances(name) for name in classes if PREFIX in name}
    assert len(own) == 23
    for name, instances in own.items():
        assert [instance.classname for instance in instances] == [name] * len(instances)

    def is_below(name, ancestor):
        return name == ancestor or (
            name in classes and is_below(classes[name].superclass, ancestor)
        )

    for ancestor in classes:
        expected = sorted(
            name for name in own for _ in own[name] if is_below(name, ancestor)
        )
        # The setting association has one more link each time that it is asked.
        growing = f"{PREFIX}ElementSetting"
        found = sorted(i.classname for i in connection.EnumerateInstances(ancestor))
        names = sorted(i.classname for i in connection.EnumerateInstanceNames(ancestor))
        assert set(found) == set(names) == set(expected)
        assert [n for n in found if n != growing] == [n for n in expected if n != growing]


def test_instance_has_values_of_their_types(pywbem, connection):
    (service,) = connection.EnumerateInstances("CIM_DiagnosticService")
    assert service.path.keybindings == {"Name": TEST_NAME, "SystemName": ""}
    assert service.path.namespace == NAMESPACE
    assert service["ElementName"] == TEST_NAME
    assert service["CreationClassName"] is None
    assert service["OperationalStatus"] == [2]
    assert isinstance(service["EnabledState"], pywbem.Uint16)
    assert isinstance(service["InstallDate"], pywbem.CIMDateTime)
    assert service["Started"] is True
    assert service["StatusDescriptions"] == ["Status OK"]


def test_shallow_inheritance_shows_the_class_only(connection):
    (deep,) = connection.EnumerateInstances("CIM_ManagedElement", PropertyList=None)[:1]
    (shallow,) = connection.EnumerateInstances("CIM_ManagedElement", DeepInheritance=False)[:1]
    assert set(shallow.keys()) == {"Caption", "Description", "ElementName"}
    assert set(deep.keys()) > set(shallow.keys())


def test_property_list_is_honoured(connection):
    (service,) = connection.EnumerateInstances(SERVICE, PropertyList=["name", "CAPTION", "No"])
    assert sorted(service.keys()) == ["Caption", "Name"]
    (bare,) = connection.EnumerateInstances(SERVICE, PropertyList=[])
    assert (len(bare.properties), bare.path.keybindings["Name"]) == (0, TEST_NAME)


def test_local_only_and_class_origin_are_honoured(connection):
    (local,) = connection.EnumerateInstances(SERVICE, LocalOnly=True)
    assert len(local.properties) == 0
    (service,) = connection.EnumerateInstances(SERVICE, IncludeClassOrigin=True)
    assert service.properties["Started"].class_origin == "CIM_Service"


def test_qualifiers_of_instances_come_when_asked_for(connection):
    (service,) = connection.EnumerateInstances(SERVICE, IncludeQualifiers=True)
    assert service.properties["Name"].qualifiers["Key"].value is True


def test_diagnostic_runs_and_leaves_its_record(pywbem, connection):
    assert connection.EnumerateInstances(RECORD) == []
    value, out = run(pywbem, connection)
    assert value == 1
    assert list(out) == ["Job"]
    job = out["Job"]
    assert (job.classname, job.namespace) == (JOB, NAMESPACE)
    (record,) = connection.EnumerateInstances(RECORD)
    assert record["RecordData"] == passed(1)
    assert connection.EnumerateInstanceNames(JOB)[0].keybindings == job.keybindings


def test_records_are_there_for_the_next_client(pywbem, connection, server):
    run(pywbem, connection)
    with pywbem.WBEMConnection(server.base_url, default_namespace=NAMESPACE) as other:
        assert len(other.EnumerateInstances(RECORD)) == 1


def test_diagnostic_runs_with_arguments(pywbem, connection):
    (element,) = connection.EnumerateInstanceNames(f"{PREFIX}ManagedSystemElement")
    (setting,) = connection.EnumerateInstanceNames(f"{PREFIX}DiagnosticSetting")
    value, out = run(pywbem, connection, ManagedElement=element, DiagSetting=setting)
    assert (value, out["Job"].classname) == (1, JOB)


def test_null_argument_may_be_given(pywbem, connection):
    value, _ = connection.InvokeMethod(
        "RunDiagnostic",
        service_path(pywbem),
        Params=[pywbem.CIMParameter("JobSetting", "reference", value=None)],
    )
    assert value == 1


def test_wrong_argument_is_invalid(pywbem, connection):
    assert status_of(pywbem, lambda: run(pywbem, connection, Colour="red")) == 4


@pytest.mark.parametrize(
    "keys",
    [
        [("Name", TEST_NAME)],
        [("SystemName", ""), ("Name", TEST_NAME)],
        [("NAME", TEST_NAME), ("systemname", "")],
        [("Name", TEST_NAME), ("SystemName", "z"), ("CreationClassName", "x")],
    ],
    ids=["name-only", "other-order", "other-case", "other-keys"],
)
def test_keys_in_any_order_and_letter_case_are_accepted(pywbem, connection, keys):
    path = pywbem.CIMInstanceName(SERVICE.upper(), keys, namespace=NAMESPACE.lower())
    value, _ = connection.InvokeMethod("rundiagnostic", path)
    assert value == 1


@pytest.mark.parametrize("name", ["bmc i2c test", "", "BMC I2C Test "])
def test_name_of_no_test_fails(pywbem, connection, name):
    call = lambda: connection.InvokeMethod("RunDiagnostic", service_path(pywbem, name))
    assert status_of(pywbem, call) == 1


@pytest.mark.parametrize("link", LINKS)
def test_association_is_followed_both_ways(pywbem, connection, link):
    run(pywbem, connection)
    cls = PREFIX + link
    instance = connection.EnumerateInstances(cls)[0]
    one, other = (instance[role] for role in LINKS[link])
    for (source, role), (target, result_role) in (
        ((one, LINKS[link][0]), (other, LINKS[link][1])),
        ((other, LINKS[link][1]), (one, LINKS[link][0])),
    ):
        filters = {"AssocClass": cls, "Role": role.upper(), "ResultRole": result_role.lower()}
        names = connection.AssociatorNames(source, **filters)
        assert [(n.classname, n.keybindings) for n in names] == [
            (target.classname, target.keybindings)
        ]
        (found,) = connection.Associators(source, ResultClass=target.classname, **filters)
        assert found.path.keybindings == target.keybindings
        assert found.path.host == f"127.0.0.1:{connection.url.rpartition(':')[2]}"
        references = connection.References(source, ResultClass=cls, Role=role)
        assert {r.path.classname for r in references} == {cls}
        assert all(r[role].keybindings == source.keybindings for r in references)
        assert connection.ReferenceNames(source, ResultClass=cls, Role=role)
        assert not connection.AssociatorNames(source, AssocClass=cls, Role=result_role)


def test_other_associations_have_no_instances(pywbem, connection, own_classes):
    run(pywbem, connection)
    associations = [cls.classname for cls in own_classes if "Association" in cls.qualifiers]
    tied = [name for name in associations if connection.EnumerateInstances(name)]
    assert len(associations) == 11
    assert sorted(tied) == sorted(PREFIX + link for link in LINKS)


def test_all_associations_of_the_service_are_found(pywbem, connection):
    run(pywbem, connection)
    (path,) = connection.EnumerateInstanceNames(SERVICE)
    assert {name.classname for name in connection.AssociatorNames(path)} >= {
        JOB,
        f"{PREFIX}ManagedSystemElement",
    }


def test_module_that_derives_associations_itself_gives_the_same(pywbem, bmci2c, serve):
    def associated():
        with pywbem.WBEMConnection(serve().base_url, default_namespace=NAMESPACE) as connection:
            run(pywbem, connection)
            for source in (SERVICE, f"{PREFIX}ManagedSystemElement", JOB):
                (path,) = connection.EnumerateInstanceNames(source)
                for ask in (connection.AssociatorNames, connection.ReferenceNames):
                    yield sorted(name.classname for name in ask(path))
                yield sorted(found.path.classname for found in connection.Associators(path))

    left_to_the_server = list(associated())
    bmci2c.write("empty.toml", "[cim]\nderive_associations = true\n")
    assert list(associated()) == left_to_the_server
    assert len(left_to_the_server[0]) == 4


def test_association_filters_choose(pywbem, connection):
    run(pywbem, connection)
    (path,) = connection.EnumerateInstanceNames(SERVICE)
    jobs = connection.Associators(path, ResultClass="CIM_Job", PropertyList=["InstanceID"])
    assert [(job.classname, list(job.keys())) for job in jobs] == [(JOB, ["InstanceID"])]
    assert connection.AssociatorNames(path, ResultClass="CIM_SoftwareIdentity") == []
    assert status_of(pywbem, lambda: connection.Associators(path, AssocClass="CIM_No")) == 4


def test_associations_of_classes_are_classes(connection):
    path, cls = connection.Associators(SERVICE, AssocClass="CIM_UseOfLog")[0]
    assert (path.classname, path.namespace, cls.classname) == ("CIM_Log", NAMESPACE, "CIM_Log")
    names = {name.classname for name in connection.ReferenceNames(SERVICE)}
    assert {f"{PREFIX}UseOfLog", "CIM_Dependency", f"{PREFIX}ElementSetting"} <= names
    assert not {f"{PREFIX}LogManagesRecord", JOB} & names


def test_every_instance_is_got_by_its_path(pywbem, connection, own_classes):
    run(pywbem, connection)
    count = 0
    for cls in own_classes:
        for path in connection.EnumerateInstanceNames(cls.classname):
            got = connection.GetInstance(path, PropertyList=["Caption"])
            assert got.path.keybindings == path.keybindings
            assert set(got.keys()) <= {"Caption"}
            count += 1
    assert count >= 16


def test_instance_that_does_not_exist_is_not_found(pywbem, connection, own_classes):
    for path in (
        service_path(pywbem, "No Test"),
        service_path(pywbem, cls="CIM_DiagnosticService"),
        service_path(pywbem, cls="CIM_ManagedElement"),
    ):
        assert status_of(pywbem, lambda: connection.GetInstance(path)) == 6


def test_instances_cannot_be_made_changed_or_deleted(pywbem, connection, own_classes):
    run(pywbem, connection)
    assert len(own_classes) == 23
    for cls in own_classes:
        path = some_path(pywbem, cls)
        instance = pywbem.CIMInstance(cls.classname, path.keybindings, path=path)
        assert status_of(pywbem, lambda: connection.CreateInstance(instance, NAMESPACE)) == 7
        assert status_of(pywbem, lambda: connection.ModifyInstance(instance)) == 7
        assert status_of(pywbem, lambda: connection.DeleteInstance(path)) == 7


PULLED = {
    "instances": ("OpenEnumerateInstances", "PullInstancesWithPath", "instances"),
    "paths": ("OpenEnumerateInstancePaths", "PullInstancePaths", "paths"),
    "associators": ("OpenAssociatorInstances", "PullInstancesWithPath", "instances"),
    "associator-paths": ("OpenAssociatorInstancePaths", "PullInstancePaths", "paths"),
    "references": ("OpenReferenceInstances", "PullInstancesWithPath", "instances"),
    "reference-paths": ("OpenReferenceInstancePaths", "PullInstancePaths", "paths"),
}


@pytest.mark.parametrize("kind", PULLED)
def test_objects_are_pulled_one_by_one(pywbem, connection, kind):
    opens, pulls, objects = PULLED[kind]
    run(pywbem, connection)
    source = "CIM_ManagedElement" if "Enumerate" in opens else service_path(pywbem, SystemName="")
    path_of = lambda found: found if objects == "paths" else found.path
    whole = getattr(connection, opens)(source, MaxObjectCount=1000)
    assert (whole.eos, whole.context) == (True, None)
    piece = getattr(connection, opens)(source, MaxObjectCount=1, OperationTimeout=10)
    pulled = list(getattr(piece, objects))
    assert (len(pulled), piece.eos) == (1, False)
    while not piece.eos:
        piece = getattr(connection, pulls)(piece.context, MaxObjectCount=1)
        pulled += getattr(piece, objects)
    assert [path_of(one) for one in pulled] == [path_of(one) for one in getattr(whole, objects)]
    assert len(pulled) > 3
    assert {path_of(one).host for one in pulled} == {connection.url.removeprefix("http://")}


def test_enumeration_is_closed(pywbem, connection):
    context = connection.OpenEnumerateInstances("CIM_ManagedElement").context
    connection.CloseEnumeration(context)
    pull = lambda: connection.PullInstancesWithPath(context, MaxObjectCount=1)
    assert status_of(pywbem, pull) == 21


def test_wrong_parameters_of_pull_operations_are_refused(pywbem, connection):
    wrong = {
        22: {"OperationTimeout": 0},
        25: {"FilterQueryLanguage": "DMTF:FQL", "FilterQuery": "Name = 'x'"},
        26: {"ContinueOnError": True},
    }
    for status, parameters in wrong.items():
        opening = lambda: connection.OpenEnumerateInstances(SERVICE, **parameters)
        assert status_of(pywbem, opening) == status


def test_clients_that_leave_let_others_in(pywbem, connection):
    for _ in range(64):
        connection.OpenEnumerateInstances("CIM_ManagedElement", OperationTimeout=1)
    assert connection.OpenEnumerateInstances("CIM_ManagedElement", MaxObjectCount=1000).eos
    opening = lambda: connection.OpenEnumerateInstances("CIM_ManagedElement")
    deadline = time.monotonic() + 60
    while time.monotonic() < deadline:
        try:
            assert not opening().eos
            return
        except pywbem.CIMError as error:
            assert error.status_code == 27
            time.sleep(0.2)
    pytest.fail("the enumerations of clients that left stay open")


def test_every_other_method_is_not_supported(pywbem, connection, own_classes):
    count = 0
    for cls in own_classes:
        path = some_path(pywbem, cls)
        for method in cls.methods:
            if method == "RunDiagnostic":
                continue
            assert status_of(pywbem, lambda: connection.InvokeMethod(method, path)) == 7
            count += 1
    assert count == 27


def test_other_operations_are_not_supported(pywbem, connection):
    operations = [
        lambda: connection.DeleteClass(SERVICE),
        lambda: connection.ExecQuery("WQL", "SELECT * FROM X"),
        lambda: connection.OpenQueryInstances("DMTF:CQL", "SELECT * FROM X"),
        lambda: connection.DeleteQualifier("Key"),
    ]
    assert [status_of(pywbem, operation) for operation in operations] == [7] * 4


def test_what_does_not_exist_is_named(pywbem, connection):
    path = service_path(pywbem)
    lost = service_path(pywbem, cls="CIM_No")
    calls = {
        17: [lambda: connection.InvokeMethod("Dance", path)],
        5: [
            lambda: connection.InvokeMethod("RunDiagnostic", lost),
            lambda: connection.EnumerateInstances("CIM_No"),
            lambda: connection.EnumerateInstanceNames("CIM_No"),
            lambda: connection.EnumerateClasses(ClassName="CIM_No"),
            lambda: connection.GetInstance(lost),
            lambda: connection.AssociatorNames(lost),
        ],
        6: [lambda: connection.GetClass("CIM_No"), lambda: connection.GetQualifier("No")],
        3: [
            lambda: connection.EnumerateInstances(SERVICE, namespace="root/none"),
            lambda: connection.EnumerateClassNames(namespace="root/none"),
            lambda: connection.InvokeMethod(
                "RunDiagnostic", pywbem.CIMInstanceName(SERVICE, {"Name": "x"}, None, "root/none")
            ),
        ],
    }
    for status, failing in calls.items():
        assert [status_of(pywbem, call) for call in failing] == [status] * len(failing)


def test_parallel_clients_do_not_disturb_each_other(pywbem, server):
    def work(_):
        with pywbem.WBEMConnection(server.base_url, default_namespace=NAMESPACE) as own:
            for _ in range(5):
                assert run(pywbem, own)[0] == 1
                assert len(own.EnumerateInstances("CIM_DiagnosticService")) == 1
                assert len(own.EnumerateInstances(RECORD)) <= 1
                own.EnumerateInstances("CIM_Dependency")

    with ThreadPoolExecutor(6) as clients:
        list(clients.map(work, range(6)))
    with pywbem.WBEMConnection(server.base_url, default_namespace=NAMESPACE) as last:
        assert len(last.EnumerateInstances(RECORD)) == 1
