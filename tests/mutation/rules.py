"""What a mutant is: small changes of a source text, each at a place of its syntax tree."""

import dataclasses
import os
import re

from clang.cindex import CursorKind as Kind
from clang.cindex import Index, TranslationUnit, TypeKind

COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
LOGICAL = {"&&": "||", "||": "&&"}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "&": "|", "|": "&", "^": "|", "<<": ">>", ">>": "<<"}
ASSIGNMENTS = {operator + "=": other + "=" for operator, other in ARITHMETIC.items()}
OPERATOR = re.compile(r"\|\||&&|<<=|>>=|<<|>>|[-+*/%&|^<>=!]=|[-+*/%&|^<>=]")

# A called function, and the one that is mistaken for it.
LIKE_CALLS = {
    "front": "back", "back": "front", "begin": "end", "end": "begin", "min": "max", "max": "min", "find": "rfind",
    "rfind": "find", "strchr": "strrchr", "strrchr": "strchr", "push_back": "push_front",
    "emplace_back": "emplace_front",
    "find_first_not_of": "find_first_of", "find_last_not_of": "find_last_of", "find_last_of": "find_first_of",
}

FUNCTIONS = {Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.CONVERSION_FUNCTION,
             Kind.FUNCTION_TEMPLATE}
SCOPES = {Kind.NAMESPACE, Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE, Kind.LINKAGE_SPEC}
JUMPS = {Kind.RETURN_STMT, Kind.BREAK_STMT, Kind.CONTINUE_STMT, Kind.CXX_THROW_EXPR}
LITERALS = {Kind.INTEGER_LITERAL, Kind.CHARACTER_LITERAL, Kind.STRING_LITERAL, Kind.CXX_BOOL_LITERAL_EXPR,
            Kind.CXX_NULL_PTR_LITERAL_EXPR}
INTEGERS = {TypeKind.INT, TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.SHORT, TypeKind.USHORT,
            TypeKind.LONGLONG, TypeKind.ULONGLONG}

# A list of more constants than this is a table: some of its rows stand for all.
TABLE_SIZE = 24
ROWS_OF_A_TABLE = 8


@dataclasses.dataclass(frozen=True)
class Mutant:
    name: str  # stable: made of the file, the function, the change, and a number where these are not enough
    file: str
    kind: str
    start: int
    end: int
    text: bytes

    def apply(self, source):
        """The source with the change. No line behind it moves."""
        missing = source[self.start:self.end].count(b"\n") - self.text.count(b"\n")
        return source[:self.start] + self.text + b"\n" * max(missing, 0) + source[self.end:]


def without_comments(source):
    """The source with comments and the contents of literals blanked, so that what is left is at its place."""
    pattern = rb'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\''
    return re.sub(pattern, lambda found: re.sub(rb"[^\n]", b" ", found[0]), source, flags=re.DOTALL)


def one_line(text):
    return " ".join(re.sub(r"//[^\n]*", "", text.decode()).split())


def shortened(text):
    return text if len(text) <= 90 else f"{text[:60]} [...] {text[-25:]}"


def inner(node):
    """An expression without parentheses and conversions that are not written."""
    while node.kind in (Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR):
        children = list(node.get_children())
        if len(children) != 1:
            break
        node = children[0]
    return node


class Changes:
    """The mutants of one file, in the order of their places."""

    def __init__(self, file, source, macros):
        self.file, self.source, self.plain = file, source, without_comments(source)
        self.macros = macros  # the places where a macro with arguments stands
        self.function = ""
        self.found = {}

    def add(self, kind, start, end, text, change=""):
        """A place and its new text, and what is said of the change if that is not enough."""
        text = text.encode() if isinstance(text, str) else text
        before, after = one_line(self.source[start:end]), one_line(text)
        if start < end and before != after:
            change = change or f"{shortened(before)} -> {shortened(after) or 'nothing'}"
            self.found.setdefault((start, end, text), (kind, self.function, change))

    def mutants(self):
        seen = {}
        for (start, end, text), (kind, function, change) in sorted(self.found.items()):
            name = f"{self.file}: {function}: {kind}: {change}"
            seen[name] = seen.get(name, 0) + 1
            yield Mutant(name if seen[name] == 1 else f"{name} #{seen[name]}", self.file, kind, start, end, text)


class Walk:
    """Walks the syntax tree of a file, and makes the changes of each node."""

    def __init__(self, changes, checked_at_compile_time):
        self.changes = changes
        self.checked_at_compile_time = checked_at_compile_time
        self.declared = None  # the variable whose declaration is being walked
        self.handlers = {
            Kind.IF_STMT: self.branch, Kind.WHILE_STMT: self.branch, Kind.DO_STMT: self.do_loop,
            Kind.FOR_STMT: self.for_loop, Kind.CONDITIONAL_OPERATOR: self.choice,
            Kind.BINARY_OPERATOR: self.binary, Kind.COMPOUND_ASSIGNMENT_OPERATOR: self.binary,
            Kind.UNARY_OPERATOR: self.unary, Kind.CALL_EXPR: self.call, Kind.RETURN_STMT: self.returned,
            Kind.COMPOUND_STMT: self.block, Kind.VAR_DECL: self.variable, Kind.CONSTRUCTOR: self.constructor,
            Kind.ARRAY_SUBSCRIPT_EXPR: self.subscript, Kind.INTEGER_LITERAL: self.number,
            Kind.CHARACTER_LITERAL: self.character, Kind.STRING_LITERAL: self.string,
            Kind.CXX_BOOL_LITERAL_EXPR: self.boolean, Kind.DECL_REF_EXPR: self.reference,
        }

    # Places

    def start(self, node):
        return node.extent.start.offset

    def end(self, node):
        return node.extent.end.offset

    def source(self, node):
        return self.changes.source[self.start(node):self.end(node)].decode()

    def is_here(self, location):
        return location.file is not None and os.path.normpath(location.file.name) == self.changes.file

    def is_written(self, node):
        """Whether a node stands in the file as it is, and not by way of a macro or of the language."""
        extent = node.extent
        if not self.is_here(extent.start) or not self.source(node):
            return False
        place = (self.start(node), self.end(node))
        return place not in self.changes.macros and self.changes.source[slice(*place)] != b":"

    def replace(self, kind, node, text):
        self.changes.add(kind, self.start(node), self.end(node), text)

    # The tree

    def top(self, node):
        """A declaration outside functions."""
        for child in node.get_children():
            if not self.is_here(child.location):
                continue
            if child.kind in SCOPES:
                self.top(child)
            elif child.kind in FUNCTIONS:
                self.function(child)
            elif child.kind in (Kind.VAR_DECL, Kind.FIELD_DECL) and self.is_written(child):
                self.constant(child)

    def function(self, node):
        if node.spelling in self.checked_at_compile_time:
            return
        self.changes.function = self.name(node)
        self.node(node)

    def constant(self, node):
        self.changes.function = self.name(node)
        written = Changes(self.changes.file, self.changes.source, self.changes.macros)
        inner_walk = Walk(written, self.checked_at_compile_time)
        inner_walk.declared = node
        inner_walk.descend(node)
        rows = sorted(written.found.items())
        if len(rows) > TABLE_SIZE:
            rows = rows[:: len(rows) // ROWS_OF_A_TABLE][:ROWS_OF_A_TABLE]
        for place, (kind, _, change) in rows:
            self.changes.add(kind, *place, change)
        if node.kind == Kind.VAR_DECL and self.changes.plain.count(node.spelling.encode()) == 1:
            self.changes.add("drop", self.start(node), self.end(node), "")

    def name(self, node):
        scopes = []
        parent = node.semantic_parent
        while parent is not None and parent.kind in (Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE):
            scopes.insert(0, parent.spelling)
            parent = parent.semantic_parent
        return "::".join([*scopes, node.displayname])

    def descend(self, node):
        for child in node.get_children():
            if child.kind != Kind.STATIC_ASSERT:
                self.node(child)

    def node(self, node):
        if not self.is_written(node):
            if node.extent.start.file is not None and node.kind in (Kind.UNEXPOSED_EXPR, Kind.CALL_EXPR):
                self.descend(node)
            return
        outer = self.declared
        if node.kind in (Kind.VAR_DECL, Kind.FIELD_DECL):
            self.declared = node
        handler = self.handlers.get(node.kind)
        if handler is not None:
            handler(node)
        self.descend(node)
        self.declared = outer

    # Conditions

    def condition(self, node):
        if not self.is_written(node):
            return
        core = inner(node)
        text = self.source(node)
        # The change of such an operator is a negation already, or near to one.
        is_compared = core.kind == Kind.BINARY_OPERATOR and self.operator(core)[0] in {*COMPARISONS, *LOGICAL}
        is_negated = core.kind == Kind.UNARY_OPERATOR and self.source(core).startswith("!")
        if core.kind != Kind.CXX_BOOL_LITERAL_EXPR:
            if not is_compared and not is_negated:
                self.replace("negate", node, f"!({text})")
            self.replace("condition", node, "true")
            self.replace("condition", node, "false")

    def branch(self, node):
        children = list(node.get_children())
        declared = next((child for child in children if child.kind == Kind.VAR_DECL), None)
        if declared is not None:
            if node.kind == Kind.IF_STMT:
                declaration, name = self.source(declared), declared.spelling
                for kind, text in (("negate", "!" + name), ("condition", "true"), ("condition", "false")):
                    self.replace(kind, declared, f"{declaration}; {text}")
            return
        children = [child for child in children if child.kind != Kind.DECL_STMT]
        self.condition(children[0])

    def do_loop(self, node):
        self.condition(list(node.get_children())[-1])

    def for_loop(self, node):
        plain = self.changes.plain
        place = plain.index(b"(", self.start(node)) + 1
        depth, ends = 0, []
        while depth >= 0:
            if plain[place] in b"([{":
                depth += 1
            elif plain[place] in b")]}":
                depth -= 1
            elif plain[place] == ord(";") and depth == 0:
                ends.append(place)
            place += 1
        for child in node.get_children():
            if len(ends) == 2 and ends[0] < self.start(child) < ends[1]:
                self.condition(child)
            elif len(ends) == 2 and ends[1] < self.start(child) and self.end(child) < place:
                self.replace("drop", child, "")

    def choice(self, node):
        self.condition(next(iter(node.get_children())))

    # Operators

    def operator(self, node):
        """The operator between two operands, and its place."""
        children = [child for child in node.get_children() if self.is_written(child)]
        if len(children) < 2:
            return "", 0
        start, end = self.end(children[0]), self.start(children[-1])
        found = OPERATOR.search(self.changes.plain[start:end].decode())
        return (found[0], start + found.start()) if found else ("", 0)

    def binary(self, node):
        operator, place = self.operator(node)
        if not operator:
            return
        written = [child for child in node.get_children() if self.is_written(child)]
        left, right = written[0], written[-1]
        if operator in LOGICAL:
            self.replace("logic", node, f"(({self.source(left)}) {LOGICAL[operator]} ({self.source(right)}))")
            for operand in (left, right):
                self.replace("condition", operand, "true" if operator == "&&" else "false")
        if operator in COMPARISONS:
            self.changes.add("comparison", place, place + len(operator), COMPARISONS[operator])
        other = {**ARITHMETIC, **ASSIGNMENTS}.get(operator)
        if other is not None:
            self.changes.add("operator", place, place + len(operator), other)
            if operator in ARITHMETIC and inner(right).kind not in LITERALS:
                self.replace("operand", node, self.source(left))

    def unary(self, node):
        text = self.source(node)
        for operator, other in (("++", "--"), ("--", "++")):
            if text.startswith(operator):
                self.changes.add("operator", self.start(node), self.start(node) + 2, other)
            elif text.endswith(operator):
                self.changes.add("operator", self.end(node) - 2, self.end(node), other)
        if re.match(r"!|-(?!-)|~", text):
            self.changes.add("operator", self.start(node), self.start(node) + 1, "")

    # Calls

    def call(self, node):
        if node.spelling.startswith("operator"):
            self.overloaded(node)
            return
        arguments = [argument for argument in node.get_arguments()
                     if argument is not None and self.is_written(argument) and self.end(argument) <= self.end(node)]
        for argument in arguments:
            if self.source(argument) != self.source(node):
                self.value(argument, "argument")
        for one, other in zip(arguments, arguments[1:]):
            if self.plain_type(one) == self.plain_type(other) and self.end(one) <= self.start(other):
                between = self.changes.source[self.end(one):self.start(other)].decode()
                text = self.source(other) + between + self.source(one)
                self.changes.add("arguments", self.start(one), self.end(other), text)
        callee = next(iter(node.get_children()), None)
        if callee is not None and node.spelling in LIKE_CALLS and self.is_written(callee):
            end = self.end(callee)
            if self.source(callee).endswith(node.spelling):
                self.changes.add("call", end - len(node.spelling), end, LIKE_CALLS[node.spelling])

    def overloaded(self, node):
        operands = [child for child in node.get_children() if self.is_written(child)]
        operator, place = self.operator(node)
        if len(operands) != 3 or not operator:
            return
        if operator in COMPARISONS:
            self.changes.add("comparison", place, place + len(operator), COMPARISONS[operator])
        if operator == "+":
            self.replace("operand", node, f"std::string({self.source(operands[0])})")
            self.replace("operand", node, f"std::string({self.source(operands[-1])})")

    def plain_type(self, node):
        return re.sub(r"\bconst\b|[&\s]", "", inner(node).type.get_canonical().spelling)

    # Values

    def value(self, node, kind):
        """A value that is handed on: by a return, as an argument, or to a variable."""
        core = inner(node)
        text = self.source(node)
        type_kind = node.type.get_canonical().kind
        if core.kind in LITERALS or text.startswith(("{", "[")):
            return
        if type_kind == TypeKind.BOOL:
            self.condition(node)
        elif type_kind in INTEGERS:
            self.replace(kind, node, f"({text}) + 1")
            if kind == "argument":
                self.replace(kind, node, f"({text}) - 1")
            elif kind == "return":
                self.replace(kind, node, "0")
        elif kind == "return" and type_kind == TypeKind.POINTER:
            self.replace(kind, node, "nullptr")
        elif kind != "argument" and type_kind in (TypeKind.RECORD, TypeKind.ENUM, TypeKind.POINTER):
            self.replace(kind, node, "{}")

    def returned(self, node):
        children = list(node.get_children())
        if children and self.is_written(children[0]):
            is_object = children[0].kind == Kind.UNARY_OPERATOR or self.source(children[0]) == "*this"
            if not is_object:
                self.value(children[0], "return")

    def variable(self, node):
        if self.plain_declaration(node).count(b"=") == 0:
            return
        children = list(node.get_children())
        if children and self.is_written(children[-1]) and children[-1].kind != Kind.INIT_LIST_EXPR:
            self.value(children[-1], "initial")

    def plain_declaration(self, node):
        return self.changes.plain[self.start(node):self.end(node)]

    def constructor(self, node):
        plain = self.changes.plain
        body = next((self.start(child) for child in node.get_children() if child.kind == Kind.COMPOUND_STMT), None)
        for child in node.get_children():
            if child.kind not in (Kind.MEMBER_REF, Kind.TYPE_REF) or body is None or self.end(child) >= body:
                continue
            place = self.end(child)
            if plain[place:place + 1] != b"(" or self.changes.plain[:self.start(child)].rstrip()[-1:] not in b":,":
                continue
            depth, end = 1, place + 1
            while depth != 0:
                depth += {ord("("): 1, ord(")"): -1}.get(plain[end], 0)
                end += 1
            self.changes.add("initial", place, end, "()")

    def subscript(self, node):
        index = list(node.get_children())[-1]
        if self.is_written(index) and inner(index).kind not in LITERALS:
            self.replace("argument", index, f"({self.source(index)}) + 1")

    # Constants

    def number(self, node):
        found = re.fullmatch(r"(0[xX][0-9a-fA-F]+|\d+)([uUlL]*)", self.source(node))
        if found is None:
            return
        base = 16 if found[1].lower().startswith("0x") else 8 if re.match("0[0-7]", found[1]) else 10
        number = int(found[1], base)
        changed = [number - 1] if number != 0 else []
        if not self.is_size(node):  # more room than it takes is nothing that anybody sees
            changed.append(number + 1)
        for other in changed:
            text = {8: f"0{other:o}", 10: str(other), 16: hex(other)}[base]
            self.replace("constant", node, text + found[2])

    def is_size(self, node):
        """Whether a number belongs to the size of an array that is being declared."""
        plain = self.changes.plain
        behind = plain[self.end(node):].lstrip()[:1]
        if behind != b"]" or self.declared is None:
            return False
        bracket = plain.rindex(b"[", 0, self.start(node))
        declared = plain[self.start(self.declared):bracket].rstrip(b"[]0123456789")
        return declared.endswith(self.declared.spelling.encode())

    def character(self, node):
        self.replace("constant", node, {"'/'": "'\\\\'", "'\\\\'": "'/'"}.get(self.source(node), "'#'"))

    def string(self, node):
        found = re.fullmatch(r'"((?:\\.|[^"\\\n])*)"', self.source(node))
        if found is not None:
            if found[1]:
                self.replace("constant", node, '""')
            self.replace("constant", node, f'"{found[1]}#"')

    def boolean(self, node):
        self.replace("constant", node, "false" if self.source(node) == "true" else "true")

    def reference(self, node):
        declared = node.referenced
        if declared is None or declared.kind != Kind.ENUM_CONSTANT_DECL:
            return
        values = list(declared.semantic_parent.get_children())
        place = next(i for i, value in enumerate(values) if value.spelling == declared.spelling)
        other = values[place + 1] if place + 1 < len(values) else values[place - 1]
        end = self.end(node)
        self.changes.add("constant", end - len(declared.spelling), end, other.spelling)

    # Statements

    def block(self, node):
        statements = list(node.get_children())
        for statement in statements:
            self.drop(statement, node, statement is statements[-1])
        for one, other in zip(statements, statements[1:]):
            self.swap(one, other)

    def drop(self, node, block, is_last):
        if node.kind == Kind.DECL_STMT:
            self.drop_unused(node, block)
        elif node.kind == Kind.RETURN_STMT:
            # Behind the last statement of a function there is nothing to go on with.
            nested = self.changes.plain[:self.start(block)].rstrip()
            inside = nested.endswith((b")", b"else")) and not self.is_body(block)
            if inside or not list(node.get_children()):
                self.replace("drop", node, "")
        elif node.kind.is_expression() or node.kind in (Kind.BREAK_STMT, Kind.CONTINUE_STMT):
            self.replace("drop", node, "")
            found = re.fullmatch(r"(\w+_CHECK)\((.*)\)", self.source(node), re.DOTALL)
            if found is not None:
                self.replace("negate", node, f"{found[1]}(!({found[2]}))")
                self.replace("condition", node, f"{found[1]}(true)")
        if node.kind in (Kind.BREAK_STMT, Kind.CONTINUE_STMT):
            self.replace("jump", node, "continue" if node.kind == Kind.BREAK_STMT else "break")

    def is_body(self, block):
        """Whether a block is all of a function: it begins in the first column or on the line of its head."""
        line = self.changes.plain[:self.start(block)].rsplit(b"\n", 1)[1]
        return re.match(rb"\s*(if|else|for|while|do|\}|switch|case)\b|\s*\} else|\s{4,}[^ ]", line) is None

    def drop_unused(self, node, block):
        """Drops an object that does its work in its constructor and destructor alone."""
        for variable in node.get_children():
            if variable.kind == Kind.VAR_DECL and variable.type.get_canonical().kind == TypeKind.RECORD:
                text = self.changes.plain[self.start(block):self.end(block)]
                if len(re.findall(rb"\b%s\b" % variable.spelling.encode(), text)) == 1:
                    self.replace("drop", node, ";")

    def swap(self, one, other):
        if one.kind in JUMPS or other.kind in JUMPS or not self.depend(one, other):
            return
        start, end = self.start(one), self.statement_end(other)
        middle, behind = self.statement_end(one), self.start(other)
        source = self.changes.source
        text = source[behind:end] + source[middle:behind] + source[start:middle]
        change = f"{shortened(one_line(source[start:middle]))} <-> {shortened(one_line(source[behind:end]))}"
        self.changes.add("swap", start, end, text, change)

    def statement_end(self, node):
        end = self.end(node)
        found = re.compile(rb"\s*;").match(self.changes.plain, end)
        return found.end() if found and not self.changes.plain[:end].endswith((b";", b"}")) else end

    def depend(self, one, other):
        """Whether two statements have to do with each other, neither being the declaration that the other needs."""
        declared = {node.spelling for node in one.walk_preorder() if node.kind == Kind.VAR_DECL}
        mine, theirs = self.names_in(one), self.names_in(other)
        if one.kind == Kind.DECL_STMT and declared & theirs:
            return False
        if "this" in mine | theirs and all("this" in names or any(name.startswith("m_") for name in names)
                                           for names in (mine, theirs)):
            return True
        return bool((mine - declared) & theirs)

    def names_in(self, node):
        """The variables and members that a statement names, and `this` if it calls another member function."""
        names = set()
        for part in node.walk_preorder():
            referenced = part.referenced
            if part.kind == Kind.DECL_REF_EXPR and referenced is not None:
                if referenced.kind in (Kind.VAR_DECL, Kind.PARM_DECL) and not referenced.type.is_const_qualified():
                    names.add(part.spelling)
            elif part.kind == Kind.MEMBER_REF_EXPR and not list(part.get_children()):
                is_call = referenced is not None and referenced.kind == Kind.CXX_METHOD
                names.add("this" if is_call else part.spelling)
        return names


def rows_of_values(changes):
    """Some rows of a table that a macro makes."""
    changes.function = "values"
    rows = list(re.finditer(rb"^  CLSID\((\w+), (0x[0-9a-f]{8}), .*?(0x[0-9a-f]{2})\)", changes.source, re.M))
    for row in rows[:: max(len(rows) // ROWS_OF_A_TABLE, 1)]:
        changes.function = row[1].decode()
        for group in (2, 3):
            value = row[group].decode()
            other = f"0x{int(value, 16) ^ 1:0{len(value) - 2}x}"
            changes.add("constant", row.start(group), row.end(group), other)


def mutants_of(file, unit, arguments, checked_at_compile_time):
    """The mutants of a file, seen by way of a unit that includes it or is it."""
    parsed = Index.create().parse(unit, args=arguments, options=TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
    errors = [str(diagnostic) for diagnostic in parsed.diagnostics if diagnostic.severity >= 3]
    if errors:
        raise RuntimeError("\n".join(errors))
    macros = {(macro.extent.start.offset, macro.extent.end.offset) for macro in parsed.cursor.get_children()
              if macro.kind == Kind.MACRO_INSTANTIATION and macro.extent.end.offset - macro.extent.start.offset >
              len(macro.spelling) and os.path.normpath(macro.location.file.name) == file}
    with open(file, "rb") as stream:
        changes = Changes(file, stream.read(), macros)
    walk = Walk(changes, checked_at_compile_time)
    walk.top(parsed.cursor)
    rows_of_values(changes)
    return list(changes.mutants())
