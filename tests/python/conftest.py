"""Fixtures of the Python suite."""

import numpy as np
import pytest

from samples import sample_image


@pytest.fixture
def photo() -> np.ndarray:
    """A 64 x 48 BGRA photo with varied alpha."""
    return sample_image()
