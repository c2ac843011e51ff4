"""Every effect through qtzqeffect.apply equals the qtzq tool's result, and
given materials and tables reach the library as the tool's do."""

import numpy as np
import pytest

import qtzqeffect as qe
from samples import run_tool, sample_image, within_one_second


@pytest.mark.parametrize("info", qe.catalogue(), ids=lambda info: str(info.id))
def test_every_effect_equals_the_tool(info, tmp_path):
    photo = sample_image(seed=info.id)
    qe.write_image(tmp_path / "in.png", photo)

    def both():
        run_tool("apply", info.id, tmp_path / "in.png", "-o", tmp_path / "out.png", "-q")
        return qe.apply(info.id, photo)

    # The clock-seeded effects draw their grain from the current second.
    ours = within_one_second(both)
    np.testing.assert_array_equal(ours, qe.read_image(tmp_path / "out.png"))


def test_catalogue_lists_every_overload_with_its_inputs():
    entries = qe.catalogue()
    assert [e.id for e in entries] == sorted(e.id for e in entries)
    assert {e.overload for e in entries} == {
        "image", "1 material", "2 materials", "3 materials", "2 materials + tables"}
    for entry in entries:
        count = 0 if entry.overload == "image" else int(entry.overload[0])
        assert len(entry.materials) == count, entry
        assert entry.needs_tables == entry.overload.endswith("tables")
        assert len(entry.table_modes) == (3 if entry.needs_tables else 0)
        assert len(qe.default_materials(entry.id, 8, 6)) == count
        assert (qe.default_tables(entry.id) is None) != entry.needs_tables
    film = qe.effect_info("film")
    assert (film.id, film.name, film.look, film.serialised) == (1020, "StyleFilm", "film", False)
    assert qe.effect_info(1039).serialised


@pytest.mark.parametrize(
    "name", ["1023", "StyleJapanese", "japanese", "Style_Japanese", "JAPANESE"])
def test_names_and_ids_select_the_same_effect(name, photo):
    np.testing.assert_array_equal(qe.apply(name, photo), qe.apply(1023, photo))


def test_given_materials_and_tables_equal_the_tool(tmp_path):
    photo = sample_image(seed=3, opaque=True)
    first, second, third = (sample_image(seed=s) for s in (4, 5, 6))
    for name, image in [("in", photo), ("m1", first), ("m2", second), ("m3", third)]:
        qe.write_image(tmp_path / f"{name}.png", image)
    run_tool("tables", "screen", "softlight:0.5", "multiply", "-o", tmp_path / "t.bin")
    tables = (tmp_path / "t.bin").read_bytes()
    cases = [
        (1044, [first], []),
        (1041, [first, second], []),
        (1048, [first, second, third], []),
        (1032, [first, second], ["--tables", tmp_path / "t.bin"]),
    ]
    for effect, materials, extra in cases:
        flags = [arg for i in range(len(materials)) for arg in ("-m", tmp_path / f"m{i + 1}.png")]
        run_tool("apply", effect, tmp_path / "in.png", *flags, *extra, "-o", tmp_path / "out.png")
        ours = qe.apply(effect, photo, *materials, tables=tables if extra else None)
        np.testing.assert_array_equal(
            ours, qe.read_image(tmp_path / "out.png"), err_msg=str(effect))


def test_fewer_materials_than_slots_get_the_defaults(photo):
    given = sample_image(seed=9)
    default = qe.default_materials(1041, 64, 48)
    np.testing.assert_array_equal(
        qe.apply(1041, photo, given), qe.apply(1041, photo, given, default[1]))
    np.testing.assert_array_equal(qe.apply(1041, photo), qe.apply(1041, photo, *default))


def test_default_tables_equal_the_tools_set(tmp_path):
    for info in (e for e in qe.catalogue() if e.needs_tables):
        run_tool("tables", "--for", info.id, "-o", tmp_path / "t.bin")
        assert qe.default_tables(info.id) == (tmp_path / "t.bin").read_bytes()


def test_default_materials_depend_only_on_effect_and_size():
    first = qe.default_materials(1018, 40, 30)
    again = qe.default_materials("StyleJinDian", 40, 30)
    rgb = qe.default_materials(1018, 40, 30, order="rgb")
    for a, b, c in zip(first, again, rgb):
        assert a.shape == (30, 40, 4)
        np.testing.assert_array_equal(a, b)
        np.testing.assert_array_equal(a[..., [2, 1, 0, 3]], c)
    assert not np.array_equal(first[0], first[1])


def test_tables_take_any_bytes_like_object(photo):
    tables = qe.default_tables(1031)
    expected = qe.apply(1031, photo, tables=tables)
    for form in (bytearray(tables), memoryview(tables), np.frombuffer(tables, np.uint8)):
        np.testing.assert_array_equal(qe.apply(1031, photo, tables=form), expected)
