"""Makes a failing script short: delta debugging over its lines."""


def shrink(lines, fails):
    """The shortest script found by leaving out lines, one that `fails` says yes of; yes is expected of `lines`."""
    size = max(1, len(lines) // 2)
    while True:
        shorter = False
        start = 0
        while start < len(lines):
            fewer = lines[:start] + lines[start + size:]
            if fewer and fails(fewer):
                lines = fewer
                shorter = True
            else:
                start += size
        if size == 1 and not shorter:
            return lines
        size = max(1, size // 2)
