"""Spoils files for tools/mac_checks_selftest.py. Refuses where there is nothing to spoil, so that no fault goes unplanted."""


def swap(path, old, new):
    data = path.read_bytes()
    if old not in data:
        raise AssertionError(f"{path.name} doesn't hold {old!r}, so the fault can't be planted")
    path.write_bytes(data.replace(old, new))


def change(path, edit):
    data = bytearray(path.read_bytes())
    edit(data)
    path.write_bytes(data)


def add_entitlement(copy, name):
    swap(copy.entitlements, b"<dict>", f"<dict><key>{name}</key><true/>".encode())
