"""The type stubs describe the compiled module as it is: the same names,
parameters and docstrings, so that editors show what runs."""

import ast
import inspect
from pathlib import Path

import pytest

import qtzqeffect
from qtzqeffect import _qtzqeffect

STUB = ast.parse(Path(_qtzqeffect.__file__).with_name("_qtzqeffect.pyi").read_text())


def parameters(arguments):
    """Parameter names without self, with *args under any name."""
    names = [a.arg for a in arguments.posonlyargs + arguments.args if a.arg != "self"]
    return names, ["*"] if arguments.vararg else [], [a.arg for a in arguments.kwonlyargs]


def runtime_doc(obj):
    doc = obj.__doc__ or ""
    if callable(obj) and not inspect.isclass(obj):
        doc = doc.split("\n", 2)[2] if "\n" in doc else ""  # drop the signature line
    return inspect.cleandoc(doc)


def stub_definitions():
    """(qualified name, node) of every function, method, property and class in the stub."""
    for node in STUB.body:
        if isinstance(node, (ast.FunctionDef, ast.ClassDef)):
            yield node.name, node
        if isinstance(node, ast.ClassDef):
            for member in node.body:
                if isinstance(member, ast.FunctionDef):
                    yield f"{node.name}.{member.name}", member


def test_the_stub_declares_exactly_the_modules_names():
    declared = {name for name, _ in stub_definitions() if "." not in name}
    assert declared == {name for name in dir(_qtzqeffect) if not name.startswith("_")}
    assert set(qtzqeffect.__all__) == declared


@pytest.mark.parametrize("qualified, node", list(stub_definitions()), ids=lambda v: str(v)[:40])
def test_stub_entries_match_the_runtime(qualified, node):
    owner, _, name = qualified.rpartition(".")
    obj = vars(getattr(_qtzqeffect, owner))[name] if owner else getattr(_qtzqeffect, name)
    if isinstance(node, ast.FunctionDef) and not isinstance(obj, property):
        # pybind11 puts the signature atop the docstring.
        signature = ast.parse(f"def {obj.__doc__.splitlines()[0]}: pass").body[0]
        assert parameters(node.args) == parameters(signature.args), qualified
    if not qualified.endswith("__init__") or ast.get_docstring(node):
        assert runtime_doc(obj) == inspect.cleandoc(ast.get_docstring(node)), qualified
