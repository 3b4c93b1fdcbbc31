"""The manual page and the shells' completions name every command and option that the program has, and no others."""
import pathlib
import re
import shutil
import subprocess
import sys

OPTION = re.compile(r"(?<![\w-])--[a-z][a-z0-9-]*")
VALUES = {"--kind": ["qt", "red-h", "red-p", "red-m", "red-raw", "p2"], "--format": ["xmeml", "text", "tab", "comma"],
          "--theme": ["system", "dark", "light"], "--language": ["en", "de", "fr"]}
KEYS = ["scene", "take", "rating", "label", "comment"]


def check(condition, what):
    if not condition:
        raise AssertionError(what)


def help_of(program, *command):
    return subprocess.run([program, *command, "--help"], check=True, capture_output=True, text=True).stdout


def options_of(text):
    """Those that the help lists, not those that a description mentions."""
    lines = re.findall(r"^ +((?:-\w,)?--[a-z0-9-]+)", text, re.MULTILINE)
    return {line.split(",")[-1] for line in lines}


def commands_of(text):
    return re.findall(r"^  (\w+)", text.split("Subcommands:")[1], re.MULTILINE)


def manual_sections(text):
    """The options section and each command's, with the roff taken out."""
    plain = text.replace("\\-", "-").replace('"', "")
    parts = re.split(r"^\.S[HS] ", plain, flags=re.MULTILINE)
    return {" ".join(part.split("\n")[0].split()[:2]): part for part in parts}


def described(section):
    """The options that a section describes: each in a line of its own, behind .TP."""
    return set(OPTION.findall("\n".join(re.findall(r"^\.TP\n(.*)$", section, re.MULTILINE))))


def the_manual_describes_all(program, page):
    sections = manual_sections(page.read_text(encoding="utf-8"))
    overview = help_of(program)
    commands = commands_of(overview)
    check(len(commands) >= 9, f"the help lists only {commands}")
    check(described(sections["OPTIONS"]) == options_of(overview), f"OPTIONS: {described(sections['OPTIONS'])}")
    check({name for name in sections if name.startswith("marquill ")} == {f"marquill {name}" for name in commands},
          f"the manual's commands are {sorted(sections)}")
    for command in commands:
        section, options = sections[f"marquill {command}"], options_of(help_of(program, command)) - {"--help"}
        check(described(section) == options, f"{command}: the manual has {described(section)}, the program {options}")
        named = set(OPTION.findall(section.split("\n")[0]))
        check(named == options, f"{command}: its first line has {named}, the program {options}")
    for values in [*VALUES.values(), KEYS]:
        for value in values:
            check(re.search(rf"(?<![\w-]){value}(?![\w-])", page.read_text().replace("\\-", "-")), f"no {value}")
    version = subprocess.run([program, "--version"], capture_output=True, text=True, check=True).stdout.split()[1]
    check(f"Marquill {version}" in page.read_text().split("\n")[0], f"the manual is not that of {version}")


def the_manual_is_well_formed(page):
    for tool, arguments in (("man", ["--warnings=w", "--encoding=UTF-8", "-l"]), ("mandoc", ["-Tlint", "-Wwarning"])):
        if not shutil.which(tool):
            print(f"{tool} is absent")
            continue
        done = subprocess.run([tool, *arguments, str(page)], capture_output=True, text=True, env={"MANWIDTH": "200",
                              "LC_ALL": "C.UTF-8", "PATH": "/usr/bin:/bin", "MANPAGER": "cat"})
        check(done.returncode == 0 and not done.stderr, f"{tool}: {done.stderr or done.stdout}")


def bash_completes(script, *words):
    """What bash offers for the last of `words`."""
    line = " ".join(f"'{word}'" for word in words)
    code = (f"compopt() {{ :; }}; source '{script}'; COMP_WORDS=({line}); COMP_CWORD={len(words) - 1}; _marquill; "
            "printf '%s\\n' \"${COMPREPLY[@]}\"")
    done = subprocess.run(["bash", "-c", code], capture_output=True, text=True, check=True)
    check(not done.stderr, done.stderr)
    return set(done.stdout.split())


def bash_offers_all(program, script):
    overview = help_of(program)
    offered = bash_completes(script, "marquill", "")
    check(offered == set(commands_of(overview)) | options_of(overview), f"bash offers {offered}")
    for command in commands_of(overview):
        options = options_of(help_of(program, command)) | {"--settings", "--language"}
        for before in ([], ["--settings", "file"]):
            offered = bash_completes(script, "marquill", *before, command, "--")
            check(offered == options, f"{command}: bash offers {offered}, the program has {options}")
    for option, values in VALUES.items():
        check(bash_completes(script, "marquill", option, "") == set(values), f"bash: the values of {option}")
    check(bash_completes(script, "marquill", "set", "a#01.xml", "") >= {key + "=" for key in KEYS}, "bash: the keys of set")
    check(bash_completes(script, "marquill", "set", "") == set(), "bash leaves the clip's file to the shell")
    check(bash_completes(script, "marquill", "connect", "Day", "--kind", "red-") == {"red-h", "red-p", "red-m", "red-raw"},
          "bash: what was begun of a kind")


def zsh_names_all(program, script):
    text = script.read_text(encoding="utf-8")
    check(text.startswith("#compdef marquill\n"), "zsh finds it by its first line")
    overview = help_of(program)
    commands = commands_of(overview)
    check(sorted(re.findall(r"^  '([a-z]+):", text, re.MULTILINE)) == sorted(commands), "the commands in zsh")
    branches = dict(re.findall(r"^      (\w+)\)\n(.*?);;", text, re.MULTILINE | re.DOTALL))
    check(set(branches) == set(commands), f"zsh knows {sorted(branches)}")
    for command in commands:
        options = options_of(help_of(program, command)) - {"--help"}
        check(set(OPTION.findall(branches[command])) == options, f"zsh: the options of {command}")
    check(set(OPTION.findall(text.split("case $state")[0])) == options_of(overview), "zsh: the program's options")
    holds_all_values(text, "zsh")
    syntax(script, "zsh")


def fish_names_all(program, script):
    text = script.read_text(encoding="utf-8")
    overview = help_of(program)
    commands = commands_of(overview)
    check(sorted(re.findall(r"-f -a (\w+)", text)) == sorted(commands), "the commands in fish")
    offered = {command: set() for command in commands}
    for users, option in re.findall(r"-n '__fish_seen_subcommand_from ([\w ]+)' -l ([\w-]+)", text):
        for command in users.split():
            offered[command].add("--" + option)
    for command in commands:
        options = options_of(help_of(program, command)) - {"--help"}
        check(offered[command] == options, f"fish: {command} has {offered[command]}, the program {options}")
    of_all = {"--" + option for option in re.findall(r"^complete -c marquill (?:-n \$none )?(?:-s \w )?-l ([\w-]+)", text,
                                                     re.MULTILINE)}
    check(of_all == options_of(overview), f"fish: the program's options are {of_all}")
    holds_all_values(text, "fish")
    syntax(script, "fish")


def holds_all_values(text, shell):
    for values in VALUES.values():
        check(" ".join(values) in text, f"{shell}: {values}")
    check(" ".join(key + "=" for key in KEYS) in text, f"{shell}: {KEYS}")


def syntax(script, shell):
    if not shutil.which(shell):
        print(f"{shell} is absent: its completions are compared, not run")
        return
    done = subprocess.run([shell, "-n", str(script)], capture_output=True, text=True)
    check(done.returncode == 0, done.stderr)


def main():
    program, packaging = sys.argv[1], pathlib.Path(sys.argv[2])
    the_manual_describes_all(program, packaging / "marquill.1")
    the_manual_is_well_formed(packaging / "marquill.1")
    bash_offers_all(program, packaging / "completions" / "marquill.bash")
    zsh_names_all(program, packaging / "completions" / "_marquill")
    fish_names_all(program, packaging / "completions" / "marquill.fish")
    print("Manual and completions tell what the program has.")


if __name__ == "__main__":
    main()
