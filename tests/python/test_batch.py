"""qtzqeffect.batch on a local distributed cluster of two worker processes
and on dask's local schedulers: every output equals a direct call."""

import functools

import numpy as np
import pytest

import qtzqeffect as qe
from qtzqeffect import batch
from samples import sample_image

# A chain: a material effect with its generated default, then compiled
# functions, bare and partially applied (both reach worker processes).
CHAIN = [1044, functools.partial(qe.gamma, red=0.8, green=1.2, blue=1.0), qe.auto_levels]


def direct(path):
    return qe.auto_levels(qe.gamma(qe.apply(1044, qe.read_image(path)), 0.8, 1.2, 1.0))


@pytest.fixture
def photos(tmp_path):
    """A folder of six generated PNGs of different sizes, a corrupt one and a text file."""
    folder = tmp_path / "in"
    folder.mkdir()
    for i in range(6):
        qe.write_image(folder / f"p{i}.png", sample_image(40 + 4 * i, 30 + 2 * i, seed=i))
    (folder / "broken.png").write_bytes(b"not an image")
    (folder / "notes.txt").write_text("not picked up")
    return folder


def check_results(results, photos, out):
    assert [r.input for r in results] == sorted(str(p) for p in photos.glob("*.png"))
    failed = [r for r in results if not r.ok]
    assert [r.input for r in failed] == [str(photos / "broken.png")]
    assert "not a PNG, JPEG, WebP, TIFF, HEIF or AVIF file" in failed[0].error
    for result in results:
        if result.ok:
            np.testing.assert_array_equal(qe.read_image(result.output), direct(result.input))
    assert not (out / "broken.png").exists()


@pytest.mark.filterwarnings("ignore::DeprecationWarning")  # tornado, inside distributed
def test_runs_on_a_local_cluster_of_two_worker_processes(photos, tmp_path):
    distributed = pytest.importorskip("distributed")
    reports = []
    cluster = distributed.LocalCluster(
        n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None)
    with cluster, distributed.Client(cluster) as client:
        results = batch.apply_to_files(CHAIN, photos, tmp_path / "out", client=client,
                                       progress=lambda done, total: reports.append((done, total)))
        assert len(client.scheduler_info()["workers"]) == 2
    check_results(results, photos, tmp_path / "out")
    assert reports[-1] == (7, 7) and [d for d, _ in reports] == sorted(d for d, _ in reports)


@pytest.mark.parametrize("scheduler", ["threads", "synchronous"])
def test_runs_on_the_local_schedulers(photos, tmp_path, scheduler, capsys):
    results = batch.apply_to_files(
        CHAIN, photos, tmp_path / "out", scheduler=scheduler, partitions=3)
    check_results(results, photos, tmp_path / "out")
    assert capsys.readouterr().err.endswith("qtzqeffect.batch: 7/7 files\n")


def test_plans_are_checked_before_any_work(photos, tmp_path):
    out = tmp_path / "out"
    qe.write_image(photos / "p1.jpg", sample_image())
    for steps, inputs, message in [(["film", "nope"], photos, "unknown effect 'nope'"),
                                   ("film", [photos / "p1.png", photos / "p1.jpg"], "both be"),
                                   ([], photos, "no steps")]:
        with pytest.raises(ValueError, match=message):
            batch.apply_to_files(steps, inputs, out, output_format="png")
    assert not out.exists()
    assert batch.apply_to_files("film", [], out) == []
