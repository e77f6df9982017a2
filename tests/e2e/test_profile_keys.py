"""What each key of a simulated machine's profile does."""

import pytest
from conftest import SERVICE, failed_bus, node, passed, unjudged


def service_name(bmci2c, **keys):
    profile = bmci2c.profile(node(data=[0]), **keys)
    (service,) = bmci2c.simulate(profile, "enumerate", SERVICE, "--json").json()
    return service["properties"]["Name"]


def test_machine_type_must_be_listed(bmci2c):
    assert bmci2c.record_texts(node(data=[0]), machine_type="7000", bios_id="") == [passed(1)]
    assert "[7001]" in bmci2c.record_texts(node(data=[0]), machine_type="7001", bios_id="")[0]


def test_machine_type_is_compared_with_its_letter_case(bmci2c):
    bmci2c.write_catalog(
        (bmci2c.root / "bmci2c" / "bmci2c.msg.xml").read_text().replace('"7000"', '"abcd"')
    )
    assert bmci2c.record_texts(node(data=[0]), machine_type="abcd") == [passed(1)]
    assert "[ABCD]" in bmci2c.record_texts(node(data=[0]), machine_type="ABCD")[0]


def test_bios_id_stands_in_for_the_machine_type(bmci2c):
    assert bmci2c.record_texts(node(data=[0]), machine_type="x", bios_id="7000") == [passed(1)]


def test_oxc_changes_the_name_of_the_test(bmci2c):
    assert service_name(bmci2c) == "BMC I2C Test"
    assert service_name(bmci2c, oxc=False) == "BMC I2C Test"
    assert service_name(bmci2c, oxc=True) == "OXC I2C Test"


def test_oem_build_changes_the_recommendations(bmci2c):
    last_bus = node(data=[0] * 7 + [0x80])
    advice = failed_bus(63, 1) + "\nRecommendations:\n\n"
    assert bmci2c.record_texts(last_bus) == [advice + "standard advice"]
    assert bmci2c.record_texts(last_bus, oem_build=False) == [advice + "standard advice"]
    assert bmci2c.record_texts(last_bus, oem_build=True) == [advice + "OEM advice"]


def test_generation_1_ignores_bits_6_and_7_of_the_first_byte(bmci2c):
    texts = bmci2c.record_texts(node(data=[0xC1, 0xC0]), oxc=True, generation=1)
    assert texts == ["\n".join(failed_bus(bus, 1) for bus in (0, 14, 15))]


def test_generation_2_ignores_the_second_byte(bmci2c):
    texts = bmci2c.record_texts(node(data=[0xC0, 0xFF, 0x01]), oxc=True, generation=2)
    assert texts == ["\n".join(failed_bus(bus, 1) for bus in (6, 7, 8))]


def test_generation_2_counts_a_second_byte_of_zero(bmci2c):
    texts = bmci2c.record_texts(node(data=[0x01, 0x00, 0x01]), oxc=True, generation=2)
    assert texts == ["\n".join(failed_bus(bus, 1) for bus in (0, 16))]


def test_generation_without_oxc_means_nothing(bmci2c):
    texts = bmci2c.record_texts(node(data=[0x00, 0x01]), generation=2)
    assert texts == [failed_bus(8, 1)]


def test_generation_is_1_by_default(bmci2c):
    assert bmci2c.record_texts(node(data=[0xC0]), oxc=True) == [passed(1)]


def test_data_bits_are_busses_from_the_lowest(bmci2c):
    assert bmci2c.record_texts(node(data=[0x01])) == [failed_bus(0, 1)]
    assert bmci2c.record_texts(node(data=[0x00, 0x80])) == [failed_bus(15, 1)]


@pytest.mark.parametrize(
    "code, number",
    [(0xC0, 803), (0xC1, 804), (0xD5, 824), (0xD6, 802), (0xBF, 802), (0x01, 802)],
    ids=hex,
)
def test_completion_code_has_its_message(bmci2c, code, number):
    assert bmci2c.record_texts(node(completion_code=code)) == [unjudged(number, 1)]


def test_data_with_a_completion_code_is_not_judged(bmci2c):
    assert bmci2c.record_texts(node(data=[0xFF], completion_code=0xC3)) == [unjudged(806, 1)]


def test_busy_once_is_asked_again(bmci2c):
    assert bmci2c.record_texts(node(data=[0x02], busy=1)) == [failed_bus(1, 1)]


def test_busy_twice_is_judged_by_its_completion_code(bmci2c):
    assert bmci2c.record_texts(node(data=[0x02], busy=2)) == [unjudged(802, 1)]


def test_busy_counts_over_the_life_of_the_process(bmci2c):
    profile = bmci2c.profile(node(data=[0x02], busy=1))
    result = bmci2c.simulate(
        profile,
        "enumerate",
        "QUVSG_BMCI2C_DiagnosticCompletionRecord",
        "--after-runs",
        "2",
        "--json",
    )
    assert [one["properties"]["RecordData"] for one in result.json()] == [failed_bus(1, 1)]


@pytest.mark.parametrize("length", [1, 0, -1, -100000])
def test_length_up_to_1_is_too_short(bmci2c, length):
    assert bmci2c.record_texts(node(data=[0xFF], length=length)) == [unjudged(801, 1)]


def test_length_of_an_answer_without_data_is_too_short(bmci2c):
    assert bmci2c.record_texts(node(data=[])) == [unjudged(801, 1)]
    assert bmci2c.record_texts(node()) == [unjudged(801, 1)]


def test_length_decides_how_many_bytes_are_looked_at(bmci2c):
    data = [0x00, 0x00, 0x01]
    assert bmci2c.record_texts(node(data=data, length=2)) == [passed(1)]
    assert bmci2c.record_texts(node(data=data, length=3)) == [failed_bus(16, 1)]


@pytest.mark.parametrize("length", [247, 248, 250, 256, 100000, 2147483647])
def test_length_beyond_the_buffer_ends_with_it(bmci2c, length):
    assert bmci2c.record_texts(node(data=[0x01], length=length)) == [failed_bus(0, 1)]


def test_answers_false_is_not_delivered(bmci2c):
    texts = bmci2c.record_texts(node(answers=False), node(data=[0]))
    assert texts == [unjudged(802, 1) + "\n" + passed(2)]


def test_present_false_is_not_delivered_but_counted(bmci2c):
    texts = bmci2c.record_texts(node(data=[0]), node(present=False), node(data=[0]))
    assert texts == [passed(1) + unjudged(802, 2) + "\n" + passed(3)]


def test_present_false_of_the_first_node_means_no_controller(bmci2c):
    assert bmci2c.record_texts(node(present=False), node(data=[0])) == []


def test_present_false_of_the_first_node_means_not_oxc(bmci2c):
    profile = bmci2c.profile(node(present=False), oxc=True)
    (service,) = bmci2c.simulate(profile, "enumerate", SERVICE, "--json").json()
    assert service["properties"]["Name"] == "BMC I2C Test"


def test_no_node_means_no_controller(bmci2c):
    assert bmci2c.record_texts() == []
