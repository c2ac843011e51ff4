"""The type stubs describe the compiled module as it is: the same names,
parameters and docstrings, so that editors show what runs."""

import ast
import inspect
from pathlib import Path

import pytest

import qtzqeffect
from qtzqeffect import _qtzqeffect

STUB = Path(_qtzqeffect.__file__).with_name("_qtzqeffect.pyi")


def stub_tree():
    return ast.parse(STUB.read_text())


def public(names):
    return {name for name in names if not name.startswith("_")}


def runtime_parameters(function):
    """Parameter names from the signature line pybind11 puts atop a docstring,
    without self and with *args under any name."""
    signature = function.__doc__.splitlines()[0]
    arguments = ast.parse(f"def {signature}: pass").body[0].args
    names = [a.arg for a in arguments.posonlyargs + arguments.args if a.arg != "self"]
    return names, ["*"] if arguments.vararg else [], [a.arg for a in arguments.kwonlyargs]


def stub_parameters(node):
    arguments = node.args
    names = [a.arg for a in arguments.posonlyargs + arguments.args if a.arg != "self"]
    return names, ["*"] if arguments.vararg else [], [a.arg for a in arguments.kwonlyargs]


def runtime_doc(obj):
    doc = obj.__doc__ or ""
    if callable(obj) and not inspect.isclass(obj):
        doc = doc.split("\n", 2)[2] if "\n" in doc else ""  # drop the signature line
    return inspect.cleandoc(doc)


def stub_definitions():
    """(qualified name, node) of every function, method, property and class in the stub."""
    for node in stub_tree().body:
        if isinstance(node, (ast.FunctionDef, ast.ClassDef)):
            yield node.name, node
        if isinstance(node, ast.ClassDef):
            for member in node.body:
                if isinstance(member, ast.FunctionDef):
                    yield f"{node.name}.{member.name}", member


def resolve(qualified):
    obj = _qtzqeffect
    for part in qualified.split("."):
        obj = getattr(obj, part) if not isinstance(obj, type) else vars(obj)[part]
    return obj


def test_the_stub_declares_exactly_the_modules_names():
    declared = {node.name for node in stub_tree().body
                if isinstance(node, (ast.FunctionDef, ast.ClassDef))}
    assert declared == public(dir(_qtzqeffect))
    assert set(qtzqeffect.__all__) == declared


@pytest.mark.parametrize("qualified, node", list(stub_definitions()), ids=lambda v: str(v)[:40])
def test_stub_entries_match_the_runtime(qualified, node):
    obj = resolve(qualified)
    if isinstance(obj, property):
        assert runtime_doc(obj) == inspect.cleandoc(ast.get_docstring(node)), qualified
        return
    if isinstance(node, ast.FunctionDef):
        assert stub_parameters(node) == runtime_parameters(obj), qualified
    if not qualified.endswith("__init__") or ast.get_docstring(node):
        assert runtime_doc(obj) == inspect.cleandoc(ast.get_docstring(node)), qualified
