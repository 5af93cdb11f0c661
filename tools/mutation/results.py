"""The results file: lines of JSON, one for the run and one a fault; of several for one the last holds."""
import collections
import json

COUNTED = ("killed", "survived")


class Results:
    def __init__(self, path):
        self.path, self.run, self.faults = path, {}, {}
        if path.exists():
            for line in path.read_text(encoding="utf-8").splitlines():
                self.take(json.loads(line))

    def take(self, record):
        if "run" in record:
            self.run.update(record["run"])
        else:
            self.faults[record["id"]] = record

    def add(self, record):
        self.take(record)
        self.path.parent.mkdir(parents=True, exist_ok=True)
        with self.path.open("a", encoding="utf-8") as file:
            file.write(json.dumps(record, ensure_ascii=False) + "\n")

    def counted(self, room):
        return sum(fault["room"] == room and fault["verdict"] in COUNTED for fault in self.faults.values())


def read_all(paths):
    """Several files as one: rooms may have been run apart."""
    faults = {}
    for path in paths:
        faults.update(Results(path).faults)
    return faults


def print_fault(fault, verdict=""):
    print(f"{verdict or fault['verdict']}  {fault['id']}  {fault['file']}:{fault['line']}  {fault['kind']}"
          f"{'  ' + fault['by'] if fault.get('by') else ''}")
    if fault["verdict"] == "survived" or verdict:
        print(f"    {fault['text']}\n    {fault['mutant']}")


def print_score(faults):
    tally = collections.defaultdict(collections.Counter)
    for fault in faults.values():
        tally[fault["room"]][fault["verdict"]] += 1
        tally["total"][fault["verdict"]] += 1
    print(f"{'room':16} {'killed':>7} {'survived':>9} {'score':>8}   not counted")
    for room in [*sorted(set(tally) - {"total"}), "total"]:
        count = tally[room]
        both = count["killed"] + count["survived"]
        score = f"{100 * count['killed'] / both:.1f} %" if both else "-"
        rest = ", ".join(f"{n} {verdict}" for verdict, n in sorted(count.items()) if verdict not in COUNTED)
        print(f"{room:16} {count['killed']:7} {count['survived']:9} {score:>8}   {rest}")


def print_all(faults):
    for fault in sorted(faults.values(), key=lambda fault: (fault["room"], fault["verdict"], fault["file"])):
        print_fault(fault)
    print_score(faults)


def compare(before, after):
    """Prints what was noticed before and is not after; True when there is nothing of the kind."""
    lost = [fault for name, fault in after.items()
            if fault["verdict"] == "survived" and before.get(name, {}).get("verdict") == "killed"]
    for fault in sorted(lost, key=lambda fault: (fault["room"], fault["file"])):
        print_fault(fault, "lost")
        print(f"    noticed before by {before[fault['id']]['by']}")
    gained = sum(fault["verdict"] == "killed" and before.get(name, {}).get("verdict") == "survived"
                 for name, fault in after.items())
    gone = sum(fault["verdict"] == "gone" for fault in after.values())
    print(f"{len(lost)} noticed before and not after; {gained} the other way round; {gone} lines are gone")
    print("\nbefore")
    print_score(before)
    print("\nafter")
    print_score(after)
    return not lost
