// SPDX-License-Identifier: MIT
#include "command/command_table.h"

#include "command/commands.h"
#include "params/message_values.h"

#include <QCommandLineParser>

#include <algorithm>
#include <array>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr CommandOption json{u"json", u"", u"prints one JSON value"};
constexpr CommandOption out{u"output", u"OUT",
                            u"writes there instead of into FILE; - is standard output", u'o'};
constexpr CommandOption gzip{u"gzip", u"", u"wraps the archive by gzip"};

constexpr std::array jsonOnly{json};
constexpr std::array outOnly{out};
constexpr std::array gzipOnly{gzip};
constexpr std::array fontOptions{
    CommandOption{u"face", u"NAME", u"an installed TrueType font, such as \"DejaVu Sans Bold\""},
    CommandOption{u"size", u"POINTS", u"its size, 14 if not given"},
    CommandOption{u"chars", u"RANGES",
                  u"such as 0x20-0x7E,0x410-0x451; Latin and Cyrillic if not given"},
    CommandOption{u"member", u"NAME", u"the member to make, 16x16.fnt if not given"},
    out,
};
constexpr CommandOption menu{u"menu", u"LST", u"a menu.lst that is in force"};
constexpr std::array checkOptions{json, menu};
constexpr CommandOption png{u"output", u"PNG", u"the picture; - is standard output", u'o'};
constexpr CommandOption loader{u"loader", u"GRLDR", u"a Grub4DOS loader; syslinux if not given"};
constexpr CommandOption noKvm{u"no-kvm", u"", u"boots on QEMU's own processor"};
constexpr std::array renderOptions{
    png,
    menu,
    CommandOption{u"schematic", u"", u"the editor's schematic preview, not the screen as it boots"},
    CommandOption{u"select", u"N", u"the entry that the bar is on, from 1"},
    CommandOption{u"scale", u"PERCENT", u"the size of the picture, 100 if not given"},
};
constexpr std::array bootOptions{
    png,
    menu,
    CommandOption{u"keys", u"KEYS", u"pressed one after the other, such as down,down,f1"},
    CommandOption{u"at", u"SECONDS", u"how long after the screen stands the picture is taken"},
    loader,
    noKvm,
    json,
};
constexpr std::array compareOptions{
    png,    menu,  CommandOption{u"least", u"PERCENT", u"of equal pixels, 99.5 if not given"},
    loader, noKvm, json,
};
constexpr std::array diffOptions{png, menu, json};
constexpr std::array helpOptions{CommandOption{u"man", u"", u"prints the man page"}};
constexpr int any = -1;

constexpr std::array commands{
    Command{u"info", u"FILE...", 1, any, jsonOnly,
            u"generation, engine, size, members, background, fonts, menu", runInfo},
    Command{u"list", u"FILE...", 1, any, jsonOnly,
            u"the members in archive order: size, kind, name", runList},
    Command{u"get", u"FILE [NAME...]", 1, any, jsonOnly,
            u"parameters as NAME=VALUE lines; without a NAME all that the file sets", runGet},
    Command{u"set", u"FILE... NAME=VALUE...", 2, any, outOnly,
            u"sets parameters and saves; nothing else changes", runSet},
    Command{u"replace", u"FILE... MEMBER=PATH...", 2, any, outOnly,
            u"puts files in place of members; pictures are made to boot", runReplace},
    Command{u"add", u"FILE... MEMBER=PATH...", 2, any, outOnly,
            u"adds files as members; pictures are made to boot", runAdd},
    Command{u"remove", u"FILE MEMBER...", 2, any, outOnly, u"takes members out", runRemove},
    Command{u"font", u"FILE", 1, 1, fontOptions, u"makes a font member from an installed face",
            runFont},
    Command{u"extract", u"FILE DIR", 2, 2, {}, u"the members as files of a new folder", runExtract},
    Command{u"pack", u"DIR OUT", 2, 2, gzipOnly,
            u"the way back; what was not changed comes back byte for byte", runPack},
    Command{u"new", u"OUT", 1, 1, gzipOnly, u"a complete boot screen to start from", runNew},
    Command{u"upgrade", u"FILE", 1, 1, outOnly,
            u"gives an older boot screen our engine, and everything that it can show", runUpgrade},
    Command{u"render", u"FILE -o PNG", 1, 1, renderOptions,
            u"the screen as it boots, without a boot", runRender},
    Command{u"boot", u"FILE -o PNG", 1, 1, bootOptions, u"boots it in QEMU and takes the screen",
            runBoot},
    Command{u"compare", u"FILE", 1, 1, compareOptions,
            u"draws and boots it, and tells the share of equal pixels", runCompare},
    Command{u"diff", u"A B", 2, 2, diffOptions,
            u"parameters and members that differ; with -o both screens", runDiff},
    Command{u"check", u"FILE...", 1, any, checkOptions, u"what will not boot as meant", runCheck},
    Command{u"open", u"FILE", 1, 1, {}, u"opens it in the editor", runOpen},
    Command{u"help", u"[COMMAND]", 0, 1, helpOptions, u"this text, or a command's", runHelp},
    Command{u"completion",
            u"SHELL",
            1,
            1,
            {},
            u"completions for bash, zsh or fish, to be read by the shell",
            runCompletion},
};

const Command* commandOf(const QString& name)
{
    const auto* const found = std::ranges::find(commands, QStringView(name), &Command::name);
    return found == commands.end() ? nullptr : found;
}

QString unknownCommand(const QString& name)
{
    QStringList names;
    for (const Command& command : commands)
        names.append(command.name.toString());
    const QStringList near = nearNames(names, name);
    return u"there is no command %1"_s.arg(name) +
           (near.isEmpty() ? u"; fennel help lists them"_s : u"; near are "_s + near.join(u", "_s));
}

// Nothing with `fault` set if the words do not fit the command.
std::optional<CommandRun> parse(const QString& appPath, const CommandParts& parts,
                                const Command& command, const QStringList& words, QString& fault)
{
    QCommandLineParser parser;
    for (const CommandOption& option : command.options) {
        QStringList names{option.name.toString()};
        if (option.letter != 0)
            names.append(QString(QChar(option.letter)));
        parser.addOption({names, {}, option.value.toString()});
    }
    const bool parsed = parser.parse(QStringList(u"fennel"_s) + words);
    const QStringList arguments = parser.positionalArguments();
    if (!parsed)
        fault = parser.errorText();
    else if (arguments.size() < command.least ||
             (command.arguments.endsWith(u"-o PNG") && !parser.isSet(u"output"_s)) ||
             (command.most != any && arguments.size() > command.most))
        fault = u"usage: fennel %1 %2"_s.arg(command.name, command.arguments);
    if (!fault.isEmpty())
        return std::nullopt;
    QMap<QString, QString> options;
    for (const CommandOption& option : command.options) {
        const QString name = option.name.toString();
        if (parser.isSet(name))
            options[name] = parser.value(name);
    }
    return CommandRun(appPath, arguments, options, parts);
}

} // namespace

std::span<const Command> commandTable()
{
    return commands;
}

Status runCommandLine(const QString& appPath, const QStringList& arguments,
                      const CommandParts& parts)
{
    QStringList words = arguments;
    QString name = words.isEmpty() ? u"help"_s : words.takeFirst();
    if (name == "--help"_L1 || name == "-h"_L1 || name == "--version"_L1)
        name = u"help"_s;
    CommandRun nothing(appPath, {}, {});
    const Command* command = commandOf(name);
    if (command == nullptr)
        return nothing.wrongUse({}, unknownCommand(name));
    if (words.contains(u"--help"_s)) {
        nothing.print(helpText(command));
        return nothing.finish(Status::Done);
    }
    QString fault;
    std::optional<CommandRun> run = parse(appPath, parts, *command, words, fault);
    if (!run)
        return nothing.wrongUse(name, fault);
    // In an order of its own: what a command printed before it failed goes out too.
    const Status status = command->run(*run);
    return run->finish(status);
}

Status runHelp(CommandRun& run)
{
    const QString name = run.arguments().value(0);
    const Command* command = commandOf(name);
    if (command == nullptr && !name.isEmpty())
        return run.wrongUse({}, unknownCommand(name));
    run.print(run.has(u"man"_s) ? manPage() : helpText(command));
    return Status::Done;
}

Status runCompletion(CommandRun& run)
{
    const QString script = completionScript(run.arguments().first());
    if (script.isEmpty())
        return run.wrongUse(run.arguments().first(), u"the shells are bash, zsh and fish"_s);
    run.print(script);
    return Status::Done;
}

} // namespace fennel
