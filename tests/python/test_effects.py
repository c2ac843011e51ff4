"""Every effect through qtzqeffect.apply equals the qtzq tool's result, and
given or default materials and tables reach the library as the tool's do."""

import numpy as np
import pytest

import qtzqeffect as qe
from samples import run_tool, sample_image, within_one_second

PHOTO = sample_image()


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
    count = 0 if info.overload == "image" else int(info.overload[0])
    assert len(info.materials) == len(qe.default_materials(info.id, 8, 6)) == count
    assert info.needs_tables == (qe.default_tables(info.id) is not None)
    if info.needs_tables:
        run_tool("tables", "--for", info.id, "-o", tmp_path / "t.bin")
        assert qe.default_tables(info.id) == (tmp_path / "t.bin").read_bytes()


@pytest.mark.parametrize("name", ["1023", "StyleJapanese", "japanese", "Style_Japanese"])
def test_names_and_ids_select_the_same_effect(name):
    np.testing.assert_array_equal(qe.apply(name, PHOTO), qe.apply(1023, PHOTO))
    assert qe.effect_info(name).id == 1023


def test_given_materials_and_tables_equal_the_tool(tmp_path):
    photo = sample_image(seed=3, opaque=True)
    materials = [sample_image(seed=s) for s in (4, 5, 6)]
    for name, image in zip(["in", "m1", "m2", "m3"], [photo, *materials]):
        qe.write_image(tmp_path / f"{name}.png", image)
    run_tool("tables", "screen", "softlight:0.5", "multiply", "-o", tmp_path / "t.bin")
    tables = (tmp_path / "t.bin").read_bytes()
    for effect, count, extra in [(1044, 1, []), (1041, 2, []), (1048, 3, []),
                                 (1032, 2, ["--tables", tmp_path / "t.bin"])]:
        flags = [arg for i in range(count) for arg in ("-m", tmp_path / f"m{i + 1}.png")]
        run_tool("apply", effect, tmp_path / "in.png", *flags, *extra, "-o", tmp_path / "o.png")
        ours = qe.apply(effect, photo, *materials[:count], tables=tables if extra else None)
        np.testing.assert_array_equal(ours, qe.read_image(tmp_path / "o.png"), str(effect))


def test_fewer_materials_than_slots_get_the_defaults():
    given = sample_image(seed=9)
    default = qe.default_materials(1041, 64, 48)
    np.testing.assert_array_equal(
        qe.apply(1041, PHOTO, given), qe.apply(1041, PHOTO, given, default[1]))
    rgb = qe.default_materials(1041, 64, 48, order="rgb")
    np.testing.assert_array_equal(default[0][..., [2, 1, 0, 3]], rgb[0])


def test_strength_and_lut_equal_the_tool(tmp_path):
    qe.write_image(tmp_path / "in.png", PHOTO)
    run_tool("apply", "film", tmp_path / "in.png", "-o", tmp_path / "out.png", "--strength", 35)
    np.testing.assert_array_equal(qe.apply("film", PHOTO, strength=35),
                                  qe.read_image(tmp_path / "out.png"))
    # Full strength is the look, none the original colours with the look's alpha.
    np.testing.assert_array_equal(qe.apply("film", PHOTO, strength=100), qe.apply("film", PHOTO))
    np.testing.assert_array_equal(qe.apply("film", PHOTO, strength=0), PHOTO)
    # The exact table indexed [red, green, blue] is the look on those colours.
    table = qe.lut("film", 256)
    look = qe.apply("film", PHOTO)
    blue, green, red = PHOTO[..., 0], PHOTO[..., 1], PHOTO[..., 2]
    np.testing.assert_array_equal(np.rint(table[red, green, blue] * 255), look[..., 2::-1])
    assert qe.lut(1020).shape == (33, 33, 33, 3)
    assert [e.id for e in qe.catalogue() if e.colour_map] == [
        1019, 1020, 1022, 1023, 1027, 1028, 1034, 1040, 1101]
    with pytest.raises(ValueError, match="adds random grain"):
        qe.lut(1021)


@pytest.mark.parametrize("name, options", [("a.webp", {"lossless": True}), ("a.tif", {}),
                                           ("a.png", {"compression": 9})])
def test_lossless_files_round_trip_exactly(name, options, tmp_path):
    qe.write_image(tmp_path / name, PHOTO, **options)
    np.testing.assert_array_equal(qe.read_image(tmp_path / name), PHOTO)
