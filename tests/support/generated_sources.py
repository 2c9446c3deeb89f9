"""Makes random COBOL sources, each with a correct data division."""

from __future__ import annotations

from random import Random

from support.generated_items import Elementary, ItemMaker
from support.generated_text import SourceText

MAX_DEPTH = 5  # of nested groups
MAX_ITEMS = 12  # of a group
WORDS = ["AMOUNT", "Order-Line", "item", "CUST_NO", "X", "A-RATHER-LONG-NAME-OF-AN", "Total"]
GROUP_USAGES = ["COMP", "COMP-3", "COMP-5", "BINARY"]
SIGN = "SIGN"  # marks a SIGN clause where the usage of a group is passed on


class SourceMaker:
    """Makes one source. The same seed makes the same source."""

    def __init__(self, seed: int) -> None:
        self.random = Random(seed)
        self.items = ItemMaker(self.random)
        self.likely = self.items.likely
        self.text = SourceText(self.random, is_free=self.likely(25))
        self.names = 0
        self.renameable: list[str] = []  # items of the record in their order

    def name(self) -> str:
        self.names += 1
        return f"{self.random.choice(WORDS)}-{self.names}"

    def optional(self, word: str) -> str:
        return f"{word} " if self.likely(40) else ""

    def conditions(self, item: Elementary) -> None:
        literals = [value for value in item.values if value not in ("ZERO", "SPACES")]
        if literals and self.likely(15):
            first, last = literals[0], literals[-1]
            ways = [f"VALUE {first}", f"VALUES ARE {first} {last}", f"VALUES {first}, {last}"]
            ways += [f"VALUE {first} THRU {last}"] if first != last else []
            self.text.entry(88, self.name(), [self.random.choice(ways)])

    def occurs(self) -> str:
        count = self.random.choice(["2", "3", "5", "10", *self.items.constants])
        clause = f"OCCURS {count} {self.optional('TIMES')}"
        return clause + (f"INDEXED BY {self.name()}" if self.likely(20) else "")

    def item_of_a_group(self, usage: str) -> Elementary:
        if not usage:
            return self.items.any_item()
        if usage == SIGN:
            return self.items.signable()
        item = self.items.number(usage)
        item.clauses = [clause for clause in item.clauses if not clause.endswith(usage)]
        return item

    def elementary(self, level: int, usage: str, in_table: bool, has_values: bool) -> str:
        """Writes an item. Returns its name if it can be redefined, or ""."""
        item = self.item_of_a_group(usage)
        clauses = list(item.clauses)
        is_record = level in (1, 77)
        is_table = not is_record and not item.is_place and self.likely(12)
        clauses += [self.occurs()] if is_table else []
        if item.values and has_values and not (in_table or is_table) and self.likely(25):
            clauses.append(f"VALUE {self.optional('IS')}{self.random.choice(item.values)}")
        name = self.name() if is_record or self.likely(90) else ""
        self.text.entry(level, name or self.optional("FILLER").strip(), clauses)
        self.conditions(item)
        if item.is_place:
            self.renameable = []  # an index or pointer cannot be renamed
        elif name and has_values and not (in_table or is_table):
            self.renameable.append(name)
        return "" if is_table else name

    def group(self, level: int, depth: int, usage: str, in_table: bool, has_values: bool) -> str:
        """Writes a group with its members. Returns its name if it can be redefined, or ""."""
        is_table = level > 1 and self.likely(20)
        clauses = [self.occurs()] if is_table else []
        if not usage and self.likely(8):
            usage = self.random.choice(GROUP_USAGES)
            clauses.append(self.items.usage(usage))
        elif not usage and self.likely(5):
            usage = SIGN
            clauses.append(self.items.sign())
        name = self.name()
        self.text.entry(level, name, clauses)
        self.members(self.level_below(level), depth, usage, in_table or is_table, has_values)
        return "" if is_table else name

    def level_below(self, level: int) -> int:
        return level + self.random.choice([1, 2, 4, 5, 8])

    def members(self, level: int, depth: int, usage: str, in_table: bool, has_values: bool) -> None:
        for _ in range(self.random.randint(1, MAX_ITEMS >> (depth // 2))):
            if depth < MAX_DEPTH and self.likely(25):
                name = self.group(level, depth + 1, usage, in_table, has_values)
            else:
                name = self.elementary(level, usage, in_table, has_values)
            while name and not usage and self.likely(10):
                self.redefinition(level, depth, name, in_table)

    def redefinition(self, level: int, depth: int, name: str, in_table: bool) -> None:
        """Writes a redefinition, which may be smaller or larger than the item it redefines."""
        new_name = self.name() if self.likely(70) else "FILLER"
        if self.likely(50) or depth >= MAX_DEPTH:
            picture = self.items.picture(self.items.repeated("X", self.random.randint(1, 9)))
            self.text.entry(level, new_name, [f"REDEFINES {name}", picture])
        else:
            self.text.entry(level, new_name, [f"REDEFINES {name}"])
            self.members(self.level_below(level), depth + 1, "", in_table, has_values=False)

    def renames(self) -> None:
        while len(self.renameable) > 1 and self.likely(30):
            first, last = sorted(self.random.sample(range(len(self.renameable)), 2))
            clause = f"RENAMES {self.renameable[first]}"
            if self.likely(70):
                clause += f" {self.random.choice(['THRU', 'THROUGH'])} {self.renameable[last]}"
            self.text.entry(66, self.name(), [clause])

    def record(self) -> None:
        self.renameable = []
        if self.likely(15):
            self.elementary(self.random.choice([1, 77]), "", False, True)
            return
        self.text.entry(1, self.name(), [])
        level = self.level_below(1)
        self.members(level, 1, "", False, True)
        if self.likely(25):
            self.depending_table(level)
        self.renames()

    def depending_table(self, level: int) -> None:
        """Writes a table of variable size; it is the last item because nothing may follow it."""
        counter, least = self.name(), self.random.choice([0, 1, 2])
        self.text.entry(level, counter, [self.items.picture("9(3)"), *["COMP"] * self.likely(50)])
        occurs = f"OCCURS {least} TO {least + self.random.randint(1, 50)} "
        occurs += f"{self.optional('TIMES')}DEPENDING {self.optional('ON')}{counter}"
        if self.likely(50):
            self.text.entry(level, self.name(), [*self.items.number().clauses, occurs])
        else:
            self.text.entry(level, self.name(), [occurs])
            self.members(self.level_below(level), MAX_DEPTH - 1, "", True, has_values=False)

    def constants(self) -> None:
        for _ in range(self.random.choice([0, 0, 1, 2])):
            name, value = self.name(), self.random.randint(1, 12)
            self.items.constants[name] = value
            self.text.entry(78, name, [f"VALUE {value}"])

    def special_names(self) -> None:
        clauses = []
        if self.likely(20):
            self.items.currency = self.random.choice("W#L")
            clauses.append(f'CURRENCY SIGN IS "{self.items.currency}"')
        if self.likely(20):
            self.items.decimal_comma = True
            clauses.append("DECIMAL-POINT IS COMMA")
        if clauses:
            self.text.header("CONFIGURATION SECTION.")
            self.text.header("SPECIAL-NAMES.")
            self.text.line(f"{' '.join(clauses)}.")

    def source(self) -> str:
        self.text.header("IDENTIFICATION DIVISION.")
        self.text.header("PROGRAM-ID. GENERATED.")
        self.text.header("ENVIRONMENT DIVISION.")
        self.special_names()
        files = [f"FILE-{number}" for number in range(self.random.choice([0, 0, 1, 2]))]
        if files:
            self.text.header("INPUT-OUTPUT SECTION.")
            self.text.header("FILE-CONTROL.")
        for file in files:
            self.text.line(f'SELECT {file} ASSIGN TO "{file}".')
        self.text.header("DATA DIVISION.")
        if files:
            self.text.header("FILE SECTION.")
        for file in files:
            self.text.line(f"FD {file}.", indent=0)
            self.group(1, 2, "", False, has_values=False)
        self.text.header("WORKING-STORAGE SECTION.")
        self.constants()
        for _ in range(self.random.randint(1, 3)):
            self.record()
        self.text.header("PROCEDURE DIVISION.")
        self.text.line("STOP RUN.")
        return "\n".join([*self.text.lines, ""])
