"""Checks the three manifests for winget: python3 winget.py FOLDER. Ends with 1 when something is wrong.

The rules are those of version 1.12.0 of the public schema, as far as they concern fields that are used
here, in words of its own: which fields there must be, what each may hold. A field that is not named
here is a finding, too. Beside them stands what the schema cannot say: that the three files are about
the same version of the same package, and that no two installers are meant for the same user.
"""

import datetime
import re
import sys
from pathlib import Path

import yaml

SCHEMA_VERSION = "1.12.0"
UP_TO_65535 = r"(0|[1-9]\d{0,3}|[1-5]\d{4}|6[0-4]\d{3}|65[0-4]\d{2}|655[0-2]\d|6553[0-5])"
NAME_PART = r'[^.\s\\/:*?"<>|\x01-\x1f]{1,32}'


class Loader(yaml.SafeLoader):
    """Reads as winget does: dates are texts, and no field may come twice."""

    def construct_mapping(self, node, deep=False):
        names = [self.construct_object(key) for key, _ in node.value]
        if len(names) != len(set(names)):
            raise yaml.YAMLError(f"a field stands twice among {names}")
        return super().construct_mapping(node, deep)


Loader.yaml_implicit_resolvers = {
    first: [(tag, pattern) for tag, pattern in resolvers if not tag.endswith(":timestamp")]
    for first, resolvers in yaml.SafeLoader.yaml_implicit_resolvers.items()
}


def text(shortest=1, longest=256, pattern=""):
    """A text of so many letters, all of which the pattern describes."""

    def check(value, where):
        if not isinstance(value, str):
            yield f"{where} is no text"
        elif not shortest <= len(value) <= longest:
            yield f"{where} has {len(value)} letters"
        elif pattern and not re.fullmatch(pattern, value):
            yield f"{where} cannot be {value!r}"

    return check


def one_of(*values):
    def check(value, where):
        if value not in values:
            yield f"{where} cannot be {value!r}"

    return check


def return_code(value, where):
    if type(value) is not int or value == 0 or not -(2**31) <= value < 2**32:
        yield f"{where} cannot be {value!r}"


def date(value, where):
    try:
        datetime.datetime.strptime(value, "%Y-%m-%d")
    except (TypeError, ValueError):
        yield f"{where} is no date: {value!r}"


def several(item, least=0, most=128, unique=True):
    def check(value, where):
        if not isinstance(value, list):
            yield f"{where} is no list"
            return
        if not least <= len(value) <= most:
            yield f"{where} has {len(value)} entries"
        if unique and any(entry in value[:index] for index, entry in enumerate(value)):
            yield f"{where} has the same entry twice"
        for index, entry in enumerate(value):
            yield from item(entry, f"{where}[{index}]")

    return check


def fields(required, optional):
    def check(value, where):
        if not isinstance(value, dict):
            yield f"{where} has no fields"
            return
        for name in sorted(required.keys() - value.keys()):
            yield f"{where} has no {name}"
        for name, entry in value.items():
            rule = required.get(name) or optional.get(name)
            if rule is None:
                yield f"{where}: no rule is known for {name}"
            else:
                yield from rule(entry, f"{where}: {name}")

    return check


IDENTIFIER = text(1, 128, rf"{NAME_PART}(\.{NAME_PART}){{1,7}}")
VERSION = text(1, 128, r'[^\\/:*?"<>|\x01-\x1f]+')
LOCALE = text(1, 20, r"([a-zA-Z]{2,3}|[iI]-[a-zA-Z]+|[xX]-[a-zA-Z]{1,8})(-[a-zA-Z]{1,8})*")
ADDRESS = text(1, 2048, r"[Hh][Tt][Tt][Pp][Ss]?://.+")


def every_file(kind):
    return {
        "PackageIdentifier": IDENTIFIER,
        "PackageVersion": VERSION,
        "ManifestType": one_of(kind),
        "ManifestVersion": one_of(SCHEMA_VERSION),
    }


INSTALLER = fields(
    {
        "Architecture": one_of("x86", "x64", "arm", "arm64", "neutral"),
        "InstallerUrl": ADDRESS,
        # The schema takes small letters as well; the public collection is written in capital ones.
        "InstallerSha256": text(64, 64, r"[A-F0-9]{64}"),
    },
    {
        "Scope": one_of("user", "machine"),
        "InstallerSwitches": fields({}, {"Custom": text(1, 2048)}),
        "ElevationRequirement": one_of(
            "elevationRequired", "elevationProhibited", "elevatesSelf"
        ),
    },
)
MODES = one_of("interactive", "silent", "silentWithProgress")
INSTALLERS = fields(
    {
        **every_file("installer"),
        "InstallerType": one_of("nullsoft"),  # of the many: what scripts/package makes
        "Installers": several(INSTALLER, least=1, most=1024),
    },
    {
        "InstallerLocale": LOCALE,
        "Platform": several(one_of("Windows.Desktop", "Windows.Universal"), most=2),
        "MinimumOSVersion": text(1, 23, rf"{UP_TO_65535}(\.{UP_TO_65535}){{0,3}}"),
        "InstallModes": several(MODES, most=3),
        "UpgradeBehavior": one_of("install", "uninstallPrevious", "deny"),
        "ReleaseDate": date,
        "ExpectedReturnCodes": several(
            fields(
                {
                    "InstallerReturnCode": return_code,
                    "ReturnResponse": one_of(
                        *"""packageInUse packageInUseByApplication installInProgress fileInUse
                        missingDependency diskFull insufficientMemory invalidParameter noNetwork
                        contactSupport rebootRequiredToFinish rebootRequiredForInstall
                        rebootInitiated cancelledByUser alreadyInstalled downgrade blockedByPolicy
                        systemNotSupported custom""".split()
                    ),
                },
                {},
            )
        ),
        "AppsAndFeaturesEntries": several(
            fields({}, {"DisplayName": text(), "Publisher": text(), "ProductCode": text(1, 255)})
        ),
    },
)
DEFAULT_LOCALE = fields(
    {
        **every_file("defaultLocale"),
        "PackageLocale": LOCALE,
        "Publisher": text(2),
        "PackageName": text(2),
        "License": text(3, 512),
        "ShortDescription": text(3),
    },
    {
        "Author": text(2),
        "Copyright": text(3, 512),
        "Moniker": text(1, 40),
        "Tags": several(text(1, 40), most=16),
    },
)
VERSIONS = fields({**every_file("version"), "DefaultLocale": LOCALE}, {})


def between_files(version, installers, locale):
    """What only several files, or several parts of one, can get wrong."""
    for name in ("PackageIdentifier", "PackageVersion"):
        values = {manifest[name] for manifest in (version, installers, locale)}
        if len(values) > 1:
            yield f"the files do not agree on {name}: {sorted(values)}"
    if version["DefaultLocale"] != locale["PackageLocale"]:
        yield "the default locale is not the one that is described"
    meant_for = [(one["Architecture"], one.get("Scope")) for one in installers["Installers"]]
    if len(meant_for) != len(set(meant_for)):
        yield f"two installers are for the same: {meant_for}"


def findings(folder):
    """All that is wrong, a line each. What lies between files only when each of them is right."""
    ending = ".installer.yaml"
    names = {path.name for path in folder.iterdir()}
    package = next((name for name in names if name.endswith(ending)), "").removesuffix(ending)
    rules = {
        f"{package}.yaml": VERSIONS,
        f"{package}.installer.yaml": INSTALLERS,
        f"{package}.locale.en-US.yaml": DEFAULT_LOCALE,
    }
    if names != rules.keys():
        yield f"{folder} does not hold the three files of one package: {sorted(names)}"
        return
    manifests = [yaml.load((folder / name).read_bytes(), Loader) for name in rules]
    found = [
        line
        for (name, rule), manifest in zip(rules.items(), manifests)
        for line in rule(manifest, name)
    ]
    yield from found
    if not found:
        if manifests[0]["PackageIdentifier"] != package:
            yield f"{package} is not the package's identifier"
        yield from between_files(*manifests)


def main():
    try:
        found = list(findings(Path(sys.argv[1])))
    except yaml.YAMLError as error:
        found = [str(error)]
    for line in found:
        print(f"ambrio: winget: {line}", file=sys.stderr)
    return 1 if found else 0


sys.exit(main())
