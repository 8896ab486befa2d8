"""What is said of mutants in files: the reasons why nobody can see some, and the report."""

import collections

HEAD = """# What the tests see

Each mutant is the library with one small mistake in it. The tests kill a mutant when one of them fails over it, or does
not come to an end. Mutants that do not compile, and those of which the compiler makes the same program, do not count.
A mutant that no program can tell from the library is listed with the reason, and is no miss.

`scripts/mutate.sh --report` writes this file. The reasons stand in `equivalent.txt`.
"""

KINDS = {
    "argument": "an argument or index is one more or less", "arguments": "two arguments exchanged",
    "call": "a similar function called", "comparison": "comparison changed",
    "condition": "condition always true or false",
    "constant": "constant changed", "drop": "statement dropped", "initial": "initial value changed",
    "jump": "`break` and `continue` exchanged", "logic": "`&&` and `||` exchanged", "negate": "condition negated",
    "operand": "operand dropped", "operator": "operator changed", "return": "another value returned",
    "swap": "two statements exchanged",
}


class Reasons:
    def __init__(self, exact, beginnings):
        self.exact, self.beginnings = exact, beginnings

    def of(self, name):
        if name in self.exact:
            return self.exact[name]
        return next((reason for beginning, reason in self.beginnings if name.startswith(beginning)), "")


def read_reasons(path):
    """Paragraphs of names, one a line, and then the reason, indented. A name that ends in ` ...` stands for all that
    begin like it. Lines with a `#` in front are remarks."""
    exact, beginnings = {}, []
    text = path.read_text(encoding="utf-8") if path.exists() else ""
    for paragraph in text.split("\n\n"):
        lines = [line for line in paragraph.splitlines() if line.strip() and not line.startswith("#")]
        reason = " ".join(line.strip() for line in lines if line.startswith(" "))
        for name in (line.rstrip() for line in lines if not line.startswith(" ")):
            if name.endswith(" ..."):
                beginnings.append((name.removesuffix(" ..."), reason))
            else:
                exact[name] = reason
    return Reasons(exact, beginnings)


def figures(mutants, results, reasons, group_of):
    """How many mutants of each group came to which end."""
    groups = collections.defaultdict(collections.Counter)
    for mutant in mutants:
        result = results.get(mutant.name, {}).get("result")
        if result == "survives" and reasons.of(mutant.name):
            result = "unseen"
        groups[group_of(mutant)][result] += 1
    return groups


def counts(mutants, results, reasons):
    total = figures(mutants, results, reasons, lambda mutant: "")[""]
    return total["killed"], total["unseen"], total["survives"]


def summary(mutants, results, reasons):
    killed, unseen, survive = counts(mutants, results, reasons)
    share = 100 * killed / max(killed + survive, 1)
    return (f"mutation: {killed + unseen + survive} mutants, {killed} killed, {unseen} cannot be seen, "
            f"{survive} survive: {share:.1f} % killed")


def table(title, groups):
    lines = [f"| {title} | mutants | killed | cannot be seen | survive | killed of what can be seen | same program |",
             "| --- | ---: | ---: | ---: | ---: | ---: | ---: |"]
    total = sum(groups.values(), collections.Counter())
    for name, found in [*sorted(groups.items()), ("all", total)]:
        killed, unseen, survive = found["killed"], found["unseen"], found["survives"]
        share = f"{100 * killed / (killed + survive):.1f} %" if killed + survive else "-"
        lines.append(f"| {name} | {killed + unseen + survive} | {killed} | {unseen} | {survive} | {share} | "
                     f"{found['identical']} |")
    return "\n".join(lines)


def killers(mutants, results):
    found = collections.Counter()
    for mutant in mutants:
        entry = results.get(mutant.name, {})
        if entry.get("result") == "killed":
            killer = entry["killer"]
            found["no end in time" if killer == "time" else "a crash" if killer.startswith("status") else
                  killer.split(".")[0]] += 1
    return "\n".join(["| killed by | mutants |", "| --- | ---: |", *(f"| {name} | {number} |" for name, number in
                                                                     sorted(found.items()))])


def survivors(mutants, results, reasons):
    unexplained, explained = [], collections.defaultdict(list)
    for mutant in mutants:
        if results.get(mutant.name, {}).get("result") == "survives":
            reason = reasons.of(mutant.name)
            (explained[reason] if reason else unexplained).append(f"- ``{mutant.name}``")
    parts = ["## Survivors\n", "\n".join(unexplained) or "None.", "\n## Mutants that cannot be seen"]
    parts += [f"\n{reason}\n\n" + "\n".join(names) for reason, names in explained.items()]
    return "\n".join(parts)


def write_report(path, mutants, results, reasons):
    by_file = figures(mutants, results, reasons, lambda mutant: mutant.file)
    by_kind = figures(mutants, results, reasons, lambda mutant: KINDS[mutant.kind])
    parts = [HEAD, summary(mutants, results, reasons), "", table("file", by_file), "", table("change", by_kind), "", killers(mutants, results), "",
             survivors(mutants, results, reasons)]
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text("\n".join(parts) + "\n", encoding="utf-8")
