import math

import numpy as np
import pytest
import qvv7


def van_genuchten(psi, a, n, ws, wr):
    """van Genuchten (1980), eq. 21, with Mualem's m = 1 - 1/n; psi in suction units."""
    m = 1 - 1 / n
    return wr + (ws - wr) / (1 + (psi / a) ** n) ** m


def test_array_evaluation_matches_the_closed_form():
    x = -np.logspace(-1, 4, 200).reshape(10, 20)  # pore-water pressures (suction is -x)
    y = qvv7.evaluate("Van_Genuchten(A=10,N=2,SatWC=0.4,ResWC=0.1)", x)
    assert y.shape == x.shape
    np.testing.assert_allclose(y, van_genuchten(-x, 10, 2, 0.4, 0.1), rtol=1e-12)


@pytest.mark.parametrize("x,expected", [
    (np.array([1.0, -3.0]), [2.5, 2.5]),
    (np.array([np.nan, 0.0]), [math.nan, 2.5]),   # NaN in, NaN out
    ([1, 2, 3], [2.5, 2.5, 2.5]),                  # any array-like
    (4.0, 2.5),                                    # a number gives a number
])
def test_inputs_of_every_form(x, expected):
    np.testing.assert_array_equal(qvv7.evaluate("2.5", x), expected)


def test_no_value_reads_as_nan():
    # A linear interpolation without data points has no value anywhere.
    assert np.isnan(qvv7.evaluate("Linear()", np.zeros(3))).all()


def test_bad_function_text_raises():
    with pytest.raises(qvv7.Error, match="NoSuchKind"):
        qvv7.evaluate("NoSuchKind(A=1)", np.zeros(2))
    with pytest.raises(qvv7.Error, match="not a function of a function list"):
        qvv7.Document().evaluate("analyses", 1.0)


def test_document_function_over_an_array_equals_one_by_one(project):
    doc = qvv7.open(str(project))
    x = np.linspace(-200.0, 0.0, 41)
    fn = doc.function("HKFns[1]")
    assert fn.text == doc.get("HKFns[1].fn_")
    np.testing.assert_array_equal(doc.evaluate("HKFns[1]", x), [fn(v) for v in x])
