"""The vocabulary as enumerations."""

import enum
import pickle
import re
import uuid

import ccl_fio
import pytest
from ccl_fio import DocumentClass, Editor, ExtensionTrait, ExtensionType, FileType, FileTypeTrait, Path


@pytest.mark.parametrize(
    "kind, base, cpp",
    [
        (FileType, enum.IntEnum, "FIO_FILE_TYPE"),
        (ExtensionType, enum.IntEnum, "FIO_EXTENSION_TYPE"),
        (Editor, enum.IntEnum, "FIO_EDITOR_TYPE"),
        (FileTypeTrait, enum.IntFlag, "FIO_FILE_TYPE_FLAG"),
        (ExtensionTrait, enum.IntFlag, "FIO_EXTENSION_TYPE_FLAG"),
    ],
)
def test_has_the_names_and_values_of_the_header(repository, kind, base, cpp):
    header = (repository / "ccl" / "fio" / "fio_types.h").read_text()
    body = re.search(rf"enum {cpp} : .*?\{{(.*?)\}};", header, re.DOTALL).group(1)
    expected = {name: int(value, 0) for name, value in re.findall(rf"^  {cpp}_(\w+) = ([-\w]+)", body, re.MULTILINE)}
    assert issubclass(kind, base)
    assert {name: member.value for name, member in kind.__members__.items()} == expected
    assert expected


def test_has_the_document_classes_of_the_header(repository):
    names = re.findall(r"VFC_CLSID_(\w+);", (repository / "ccl" / "fio" / "fio_clsid.h").read_text())
    assert sorted(DocumentClass.__members__) == sorted(names)
    assert DocumentClass.TED_DEFAULT_DOC.value == uuid.UUID("0b720e69-67da-11d0-bf4f-0000c08cb0c0")


@pytest.mark.parametrize(
    "name, file_type",
    [
        ("x.sv", FileType.SYSTEMVERILOG_HDL_FILE),
        ("rtl/Top.VHD", FileType.VHDL_FILE),
        (Path("vhd"), FileType.VHDL_FILE),
        (b"\xff.v", FileType.VERILOG_HDL_FILE),
        ("none", FileType.INVALID),
        ("", FileType.INVALID),
        (ExtensionType.HTML, FileType.HTML_FILE),
        (DocumentClass.TED_DEFAULT_DOC, FileType.TEXT_FILE),
        (DocumentClass.TED_DEFAULT_DOC.value, FileType.TEXT_FILE),
        (uuid.UUID(int=1), FileType.INVALID),
    ],
)
def test_a_type_is_found_by_name_extension_or_class(name, file_type):
    assert FileType.of(name) is file_type


def test_a_type_has_its_facts():
    vhdl = FileType.VHDL_FILE
    assert FileType.of("x.sv").filter == "SystemVerilog HDL File (*.sv *.v *.vlg *.verilog)"
    assert (vhdl.text, vhdl.description) == ("VHDL File", "VHDL File")
    assert (vhdl.filter, vhdl.plural_filter) == ("VHDL File (*.vhd *.vhdl *.vhdp)", "VHDL Files (*.vhd *.vhdl *.vhdp)")
    assert vhdl.editor is Editor.TEXT_FILES and vhdl.editor.text == "Text Files"
    assert vhdl.default_extension is ExtensionType.VHD and vhdl.is_design_file
    assert vhdl.extensions == [ExtensionType.VHD, ExtensionType.VHDL, ExtensionType.VHDP]
    assert FileTypeTrait.DESIGN_FILES in vhdl.traits and FileTypeTrait.SCRIPT_FILES not in vhdl.traits
    assert FileTypeTrait.SCRIPT_FILES.text == "Script Files" and vhdl.traits.text is None
    assert DocumentClass.TED_DEFAULT_DOC.file_type is FileType.TEXT_FILE


def test_an_extension_has_its_facts():
    extension = ExtensionType.of("a.VHDL")
    assert extension is ExtensionType.VHDL and extension.text == ".vhdl"
    assert extension.file_type is FileType.VHDL_FILE
    assert (extension.filter, extension.plural_filter) == ("VHDL File (*.vhdl)", "VHDL Files (*.vhdl)")
    assert ExtensionType.VHD in ExtensionTrait.DEFAULT_EXTENSION.extensions
    assert ExtensionTrait.DEFAULT_EXTENSION.text is not None


def test_every_value_has_an_answer():
    for file_type in FileType:
        assert isinstance(file_type.text, str) and isinstance(file_type.filter, str)
        assert file_type.editor in Editor and file_type.default_extension in ExtensionType
        assert all(extension.text for extension in file_type.extensions)
    for extension in ExtensionType:
        assert extension.file_type in FileType and isinstance(extension.filter, str)
    assert len({file_type.text for file_type in FileType.select()} - {""}) > 200


def test_types_are_selected_by_editor_and_traits():
    assert len(FileType.select()) == 246
    memory = FileType.select(Editor.MEMORY_FILES)
    assert FileType.of("boot.mif") in memory and all(one.editor is Editor.MEMORY_FILES for one in memory)
    scripts = FileType.select(traits=FileTypeTrait.SCRIPT_FILES)
    assert FileType.of("build.tcl") in scripts
    assert FileType.select(traits=FileTypeTrait(0)) == []


def test_traits_combine():
    both = FileTypeTrait.SOURCE_FILES | FileTypeTrait.DESIGN_FILES
    assert both.value == 6 and FileTypeTrait.SOURCE_FILES in both
    assert FileTypeTrait.SOURCE_FILES not in ~both and FileTypeTrait.MEMORY_FILES in ~both
    assert ~FileTypeTrait.ALL_FILES == FileTypeTrait(0) and both in FileTypeTrait.ALL_FILES


@pytest.mark.parametrize(
    "member", [FileType.VHDL_FILE, ExtensionType.V, Editor.TEXT_FILES, FileTypeTrait.SOURCE_FILES, DocumentClass.MSW_DOC]
)
def test_members_survive_pickling(member):
    assert pickle.loads(pickle.dumps(member)) is member


def test_an_unknown_value_is_refused():
    with pytest.raises(ValueError):
        FileType(9999)
    with pytest.raises(TypeError):
        FileType.of(9999)
    for value in (2**40, -(2**40), 3.5, None):
        with pytest.raises(TypeError):
            ccl_fio._native.file_type_name(value)
    assert ccl_fio._native.file_type_name(32767) == "" == ccl_fio._native.extension_string(-32768)
