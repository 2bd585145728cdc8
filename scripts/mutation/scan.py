"""Finds the mutants of a C++ source with libclang."""
import clang.cindex as cindex
from clang.cindex import CursorKind, TypeKind

from mutant import Mutant, number

BOUNDARIES = {"<": ("<=", "Less"), "<=": ("<", "LessOrEqual"),
              ">": (">=", "Greater"), ">=": (">", "GreaterOrEqual")}
# For which side of the two a condition makes no difference.
NEUTRAL = {"&&": "true", "||": "false"}
LOOPS = {CursorKind.WHILE_STMT, CursorKind.FOR_STMT, CursorKind.CXX_FOR_RANGE_STMT}
FUNCTIONS = {CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR,
             CursorKind.DESTRUCTOR, CursorKind.CONVERSION_FUNCTION, CursorKind.FUNCTION_TEMPLATE}
# What is in them is no part of what the library does, or is told by every caller's compiler.
LEFT_ALONE = {CursorKind.STATIC_ASSERT, CursorKind.ENUM_DECL, CursorKind.TYPE_ALIAS_DECL,
              CursorKind.TYPEDEF_DECL}
LITERALS = {CursorKind.INTEGER_LITERAL, CursorKind.CXX_BOOL_LITERAL_EXPR,
            CursorKind.CHARACTER_LITERAL, CursorKind.STRING_LITERAL}


class Scanner:
    """Walks one source; `constant` says that the language wants a constant at the present place."""

    def __init__(self, root, file, arguments):
        self.file = file
        self.path = str(root / file)
        self.source = (root / file).read_bytes()
        options = cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
        self.unit = cindex.Index.create().parse(self.path, args=arguments, options=options)
        # The walk goes on behind an error; a header need not compile by itself.
        self.errors = [str(found) for found in self.unit.diagnostics
                       if found.severity >= cindex.Diagnostic.Error]
        self.macros = []
        self.mutants = []
        self.found = set()  # some expressions are reached twice
        self.at_run_time = False  # inside a constexpr function

    def scan(self):
        own = [cursor for cursor in self.unit.cursor.get_children()
               if cursor.location.file and cursor.location.file.name == self.path]
        self.macros = [self.range(c) for c in own if c.kind == CursorKind.MACRO_INSTANTIATION]
        for cursor in own:
            if not cursor.kind.is_preprocessing():
                self.visit(cursor, None, True)
        number(self.mutants)
        return self.mutants

    # Places and texts

    @staticmethod
    def range(cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def text(self, start, end):
        return self.source[start:end].decode()

    def in_macro(self, start, end):
        return any(start >= low and end <= high for low, high in self.macros)

    def add(self, kind, change, start, end, plain, switch=None):
        if self.in_macro(start, end) or (kind, start, end) in self.found:
            return
        self.found.add((kind, start, end))
        low = self.source.rfind(b"\n", 0, start) + 1
        high = self.source.find(b"\n", start)
        self.mutants.append(Mutant(
            self.file, kind, " ".join(change.split()), self.source.count(b"\n", 0, start) + 1,
            self.source.count(b"\n", 0, end) + 1, start, end,
            self.source[low:high if high >= 0 else None].decode().strip(), plain, switch))

    def on(self):
        return "mutation::OnAtRunTime(@NUMBER@)" if self.at_run_time else "mutation::On(@NUMBER@)"

    # The walk

    def visit(self, cursor, parent, constant):
        kind = cursor.kind
        if kind in LEFT_ALONE or kind.is_attribute():
            return
        if kind in FUNCTIONS:
            return self.visit_function(cursor)
        if kind == CursorKind.FIELD_DECL:
            return self.visit_field(cursor)
        if kind == CursorKind.LAMBDA_EXPR:
            constant = False
        if kind == CursorKind.VAR_DECL:
            constant = constant or "constexpr" in self.head(cursor)
        before = len(self.mutants)
        if kind.is_expression():
            file = cursor.extent.start.file
            if file is None or file.name != self.path or len(set(self.range(cursor))) == 1:
                return  # not written here: a default argument, an implicit value
            self.visit_expression(cursor, parent)
        elif kind.is_statement():
            self.visit_statement(cursor)
        if constant:
            # Which change is on would have to be known to the compiler.
            for mutant in self.mutants[before:]:
                mutant.switch = None
        children = list(cursor.get_children())
        for place, child in enumerate(children):
            self.visit(child, cursor,
                       constant or (kind == CursorKind.CASE_STMT and place == 0))

    def head(self, cursor):
        """The words before the name."""
        return self.text(cursor.extent.start.offset, cursor.location.offset).split()

    def visit_function(self, cursor):
        outer = self.at_run_time
        self.at_run_time = "constexpr" in self.head(cursor)
        # In a source most of them make tables, which only another compilation changes; those of
        # headers are called at run time, too.
        constant = self.at_run_time and not self.file.endswith(".h")
        for child in cursor.get_children():
            self.visit(child, cursor, constant)
        self.at_run_time = outer

    def visit_field(self, cursor):
        """Its first value may be part of a constant."""
        outer = self.at_run_time
        self.at_run_time = True
        for child in cursor.get_children():
            self.visit(child, cursor, False)
        self.at_run_time = outer

    # Statements

    def visit_statement(self, cursor):
        kind = cursor.kind
        children = list(cursor.get_children())
        if kind == CursorKind.COMPOUND_STMT:
            bodies = children
        elif kind in LOOPS or kind in (CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT):
            bodies = children[-1:]
        elif kind == CursorKind.DO_STMT:
            bodies = children[:1]
            self.negate(children[-1])
        elif kind == CursorKind.IF_STMT:
            bodies = self.visit_if(cursor, children)
        else:
            bodies = []
        if kind == CursorKind.WHILE_STMT:
            self.negate(children[0])
        elif kind == CursorKind.FOR_STMT:
            self.visit_for(cursor, children)
        elif kind == CursorKind.RETURN_STMT and children:
            if children[0].type.get_canonical().kind == TypeKind.BOOL:
                self.negate(children[0])
        for body in bodies:
            self.delete(body)

    def visit_if(self, cursor, children):
        """Returns the two branches."""
        head = self.text(cursor.extent.start.offset, cursor.extent.end.offset)
        if head.split("(")[0].split() != ["if"]:
            return children[1:]  # "if constexpr"
        declared = children[0].kind == CursorKind.VAR_DECL
        rest = children[1:] if children[0].kind == CursorKind.DECL_STMT else children
        if declared:
            return children[2:]
        self.negate(rest[0])
        return rest[1:]

    def visit_for(self, cursor, children):
        """The condition lies between the two semicolons."""
        depth, semicolons = 0, []
        for token in cursor.get_tokens():
            if token.spelling in "([{":
                depth += 1
            elif token.spelling in ")]}":
                depth -= 1
                if depth == 0:
                    break
            elif token.spelling == ";" and depth == 1:
                semicolons.append(token.extent.start.offset)
        for child in children[:-1]:
            start, end = self.range(child)
            if len(semicolons) == 2 and semicolons[0] < start and end <= semicolons[1]:
                self.negate(child)

    def delete(self, cursor):
        kind = cursor.kind
        is_jump = kind in (CursorKind.BREAK_STMT, CursorKind.CONTINUE_STMT) or (
            kind == CursorKind.RETURN_STMT and not list(cursor.get_children()))
        if not is_jump and not kind.is_expression():
            return
        start, end = self.range(cursor)
        semicolon = end
        while self.source[semicolon:semicolon + 1].isspace():
            semicolon += 1
        if self.source[semicolon:semicolon + 1] != b";" or start == end:
            return
        self.add("delete statement", self.text(start, end), start, semicolon + 1,
                 [[start, semicolon + 1, "{}"]],
                 {"before": f"{{ if (!{self.on()}) {{ ", "behind": " } }"})

    # Expressions

    def negate(self, cursor):
        while cursor.kind in (CursorKind.UNEXPOSED_EXPR, CursorKind.PAREN_EXPR):
            children = list(cursor.get_children())
            if len(children) != 1 or self.range(children[0]) != self.range(cursor):
                break
            cursor = children[0]
        if cursor.kind in LITERALS or not cursor.kind.is_expression():
            return
        start, end = self.range(cursor)
        text = self.text(start, end)
        self.add("negate condition", text, start, end,
                 [[start, end, f"!static_cast<bool>({text})"]],
                 {"before": f"({self.on()} != static_cast<bool>(", "behind": "))"})

    def visit_expression(self, cursor, parent):
        kind = cursor.kind
        if kind == CursorKind.BINARY_OPERATOR:
            self.visit_binary(cursor)
        elif kind == CursorKind.CONDITIONAL_OPERATOR:
            self.negate(next(cursor.get_children()))
        elif kind in LITERALS:
            self.visit_literal(cursor, parent)
        elif kind == CursorKind.INIT_LIST_EXPR and cursor.type.kind == TypeKind.CONSTANTARRAY:
            self.visit_rows(cursor)
        elif kind == CursorKind.DECL_REF_EXPR:
            self.visit_enumerator(cursor)

    def visit_binary(self, cursor):
        left, right = cursor.get_children()
        low, high = left.extent.end.offset, right.extent.start.offset
        operator = self.text(low, high).strip()
        if operator in NEUTRAL:
            for side in (left, right):
                self.drop_operand(side, operator)
        elif operator in BOUNDARIES:
            other, name = BOUNDARIES[operator]
            start, end = self.range(cursor)
            at = low + self.text(low, high).index(operator)
            token = [at, at + len(operator)]
            self.add("move boundary", f"{self.text(start, end)} with {other}", start, end,
                     [token + [other]],
                     {"before": f"mutation::{name}({self.on()}, ", "behind": ")",
                      "token": token + [","]})

    def drop_operand(self, side, operator):
        start, end = self.range(side)
        text = self.text(start, end)
        children = list(side.get_children())
        if side.kind == CursorKind.BINARY_OPERATOR and len(children) == 2:
            inner = self.text(children[0].extent.end.offset, children[1].extent.start.offset)
            if inner.strip() == operator:
                return  # its own operands are dropped one by one
        on = self.on() if operator == "&&" else f"!{self.on()}"
        self.add("drop operand", f"{operator} {text}", start, end,
                 [[start, end, NEUTRAL[operator]]],
                 {"before": f"({on} {'||' if operator == '&&' else '&&'} static_cast<bool>(",
                  "behind": "))"})

    def visit_literal(self, cursor, parent):
        start, end = self.range(cursor)
        text = self.text(start, end)
        if cursor.kind == CursorKind.INTEGER_LITERAL:
            in_brackets = self.source[:start].rstrip().endswith(b"[")
            is_bound = in_brackets and parent is not None and parent.kind in (
                CursorKind.VAR_DECL, CursorKind.FIELD_DECL)
            if text[0].isdigit() and not is_bound:
                self.add("change number", f"{text} + 1", start, end,
                         [[start, end, f"({text} + 1)"]],
                         {"before": "(", "behind": f" + {self.on()})"})
        elif cursor.kind == CursorKind.CXX_BOOL_LITERAL_EXPR:
            if text in ("true", "false"):
                self.add("change boolean", text, start, end, [[start, end, f"(!{text})"]],
                         {"before": f"({self.on()} != ", "behind": ")"})
        elif cursor.kind == CursorKind.CHARACTER_LITERAL:
            self.add("change character", f"{text} + 1", start, end,
                     [[start, end, f"static_cast<char>({text} + 1)"]],
                     {"before": "static_cast<char>(", "behind": f" + {self.on()})"})
        elif text.endswith(("\"", "\"sv", "\"s")) and text[0] == "\"":
            quote = text.rindex("\"")
            changed = text[:quote] + "~" + text[quote:]
            self.add("change text", f"{text} -> {changed}", start, end, [[start, end, changed]],
                     {"before": f"({self.on()} ? {' '.join(changed.split())} : ", "behind": ")"})

    def visit_enumerator(self, cursor):
        named = cursor.referenced
        start, end = self.range(cursor)
        if named is None or named.kind != CursorKind.ENUM_CONSTANT_DECL:
            return
        text = self.text(start, end)
        self.add("change enumerator", f"{text} + 1", start, end,
                 [[start, end, f"static_cast<decltype({text})>({text} + 1)"]],
                 {"before": f"mutation::Next({self.on()}, ", "behind": ")"})

    def visit_rows(self, cursor):
        rows = list(cursor.get_children())
        if len(rows) < 2:
            return
        for row in rows:
            start, end = self.range(row)
            after = end
            while self.source[after:after + 1].isspace():
                after += 1
            if self.source[after:after + 1] == b",":
                cut = [start, after + 1, ""]
            else:
                comma = self.source.rfind(b",", 0, start)
                cut = [comma, end, ""]
            self.add("drop row", self.text(start, end), start, end, [cut])


def scan(root, file, arguments):
    """The mutants of a file, in the order of its syntax tree, and what the compiler says against it."""
    scanner = Scanner(root, file, arguments)
    return scanner.scan(), scanner.errors
