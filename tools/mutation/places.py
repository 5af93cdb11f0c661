"""Finds the line of a recorded fault in another revision, also when the code has moved to another file."""
import re

from .faults import squeezed

OWN_TEXT = 25  # characters from which a line that stands once in the tree is its own sign


class Sources:
    """The lines of all sources below some folders, without indentation."""

    def __init__(self, root, folders):
        self.lines = {}
        for folder in folders:
            for path in sorted((root / folder).rglob("*")):
                if path.suffix in (".cpp", ".h"):
                    text = path.read_text(encoding="utf-8")
                    self.lines[str(path.relative_to(root))] = [squeezed(line) for line in text.split("\n")]

    def find(self, fault):
        """(file, line from 1) of the fault's line; None when it is gone or could be one of several."""
        found = [(self.likeness(fault, file, index), file, index + 1) for file, lines in self.lines.items()
                 for index, line in enumerate(lines) if line == fault.text]
        found.sort(reverse=True)
        if not found or (len(found) > 1 and found[0][0] == found[1][0]):
            return None
        if found[0][0] == 0 and not (len(found) == 1 and len(fault.text) >= OWN_TEXT):
            return None
        return found[0][1:]

    def likeness(self, fault, file, index):
        """How much of what surrounds a line is as it was: its neighbours, its function, its file."""
        lines = self.lines[file]
        above = [line for line in lines[:index] if line][-2:]
        below = [line for line in lines[index + 1:] if line][:2]
        score = 2 * sum(line in fault.above for line in above)
        score += 2 * sum(line in fault.below for line in below)
        score += (above[-1:] == fault.above[-1:]) + (below[:1] == fault.below[:1])
        if fault.function and self.function_above(lines, index, fault.function):
            score += 3
        return score + (1 if file == fault.file else 0)

    @staticmethod
    def function_above(lines, index, function):
        head = re.compile(rf"(?:^|[\s*&:]){re.escape(function)}\(.*\{{$")
        return any(head.search(line) for line in lines[max(0, index - 60):index])
