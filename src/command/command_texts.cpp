// SPDX-License-Identifier: MIT
// Help, man page and completions, made from the table of commands.
#include "base/run_state.h"
#include "command/command_table.h"

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

const QString statuses =
    u"Exit status: 0 done, 1 a difference or a problem was found, 2 wrong use, "
    "3 the file is bad, 4 the system failed.\n"_s;

QString optionWord(const CommandOption& option)
{
    QString word = u"--%1 %2"_s.arg(option.name, option.value).trimmed();
    return option.letter == 0 ? word : u"-%1, "_s.arg(QChar(option.letter)) + word;
}

QString usage(const Command& command)
{
    return u"fennel %1 %2"_s.arg(command.name, command.arguments);
}

// Dashes that roff would make hyphens of, and lines that it would take for requests.
QString roff(QStringView text)
{
    return text.toString().replace(u'\\', u"\\\\"_s).replace(u'-', u"\\-"_s);
}

QString bashScript()
{
    QString names;
    QString cases;
    for (const Command& command : commandTable()) {
        names += u' ' + command.name.toString();
        QStringList options;
        for (const CommandOption& option : command.options)
            options.append(u"--%1"_s.arg(option.name));
        if (!options.isEmpty())
            cases += u"        %1) words=\"%2\" ;;\n"_s.arg(command.name, options.join(u' '));
    }
    return u"_fennel()\n{\n"
           "    local word=${COMP_WORDS[COMP_CWORD]} words=\n"
           "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
           "        COMPREPLY=($(compgen -W \"%1\" -- \"$word\"))\n"
           "        return\n"
           "    fi\n"
           "    case ${COMP_WORDS[1]} in\n%2"
           "    esac\n"
           "    if [ \"${word#-}\" != \"$word\" ]; then\n"
           "        COMPREPLY=($(compgen -W \"$words\" -- \"$word\"))\n"
           "    else\n"
           "        compopt -o filenames\n"
           "        COMPREPLY=($(compgen -f -- \"$word\"))\n"
           "    fi\n"
           "}\n"
           "complete -F _fennel fennel\n"_s.arg(names, cases);
}

QString zshScript()
{
    QString names;
    QString cases;
    for (const Command& command : commandTable()) {
        names += u"        '%1:%2'\n"_s.arg(command.name, command.text);
        QString options;
        for (const CommandOption& option : command.options) {
            const QString text = option.text.toString().replace(u'[', u'(').replace(u']', u')');
            options += u" '--%1%2[%3]%4'"_s.arg(
                option.name, option.value.isEmpty() ? u""_s : u"="_s, text,
                option.value.isEmpty() ? u""_s : u":%1:_files"_s.arg(option.value));
        }
        cases += u"        %1) _arguments%2 '*:file:_files' ;;\n"_s.arg(command.name, options);
    }
    return u"#compdef fennel\n"
           "_fennel()\n{\n"
           "    local -a commands=(\n%1    )\n"
           "    if (( CURRENT == 2 )); then\n"
           "        _describe command commands\n"
           "        return\n"
           "    fi\n"
           "    local command=${words[2]}\n"
           "    shift words\n"
           "    (( CURRENT-- ))\n"
           "    case $command in\n%2"
           "    esac\n"
           "}\n"
           "compdef _fennel fennel\n"_s.arg(names, cases);
}

QString fishScript()
{
    QString script;
    for (const Command& command : commandTable()) {
        script += u"complete -c fennel -n __fish_use_subcommand -a %1 -d '%2'\n"_s.arg(
            command.name, command.text);
        for (const CommandOption& option : command.options) {
            script +=
                u"complete -c fennel -n '__fish_seen_subcommand_from %1' -l %2%3%4 -d '%5'\n"_s.arg(
                    command.name, option.name,
                    option.letter == 0 ? u""_s : u" -s %1"_s.arg(QChar(option.letter)),
                    option.value.isEmpty() ? u""_s : u" -r"_s, option.text);
        }
    }
    return script;
}

} // namespace

QString helpText(const Command* command)
{
    if (command == nullptr) {
        QString text = u"fennel %1: boot screens from the command line\n\n"_s.arg(versionText());
        for (const Command& each : commandTable())
            text += u"  %1 %2\n"_s.arg(usage(each).mid(7).leftJustified(34), each.text);
        return text +
               u"\nFILE may be - for standard input. A parameter has the name that "
               "`fennel get` prints.\n"_s +
               statuses;
    }
    QString text = u"%1\n    %2\n"_s.arg(usage(*command), command->text);
    for (const CommandOption& option : command->options)
        text += u"    %1  %2\n"_s.arg(optionWord(option).leftJustified(20), option.text);
    return text + u'\n' + statuses;
}

QString manPage()
{
    QString page = u".TH FENNEL 1 \"\" \"FENNEL\\-GFX %1\"\n.SH NAME\n"
                   "fennel \\- boot screens from the command line\n.SH SYNOPSIS\n"
                   ".B fennel\nCOMMAND [ARGUMENTS]\n.SH COMMANDS\n"_s.arg(versionText());
    for (const Command& command : commandTable()) {
        page += u".TP\n.B %1\n%2.\n"_s.arg(roff(usage(command)), roff(command.text));
        for (const CommandOption& option : command.options)
            page +=
                u".RS\n.TP\n.B %1\n%2.\n.RE\n"_s.arg(roff(optionWord(option)), roff(option.text));
    }
    return page + u".SH EXIT STATUS\n"_s + roff(statuses);
}

QString completionScript(QStringView shell)
{
    if (shell == u"bash")
        return bashScript();
    if (shell == u"zsh")
        return zshScript();
    return shell == u"fish" ? fishScript() : QString();
}

} // namespace fennel
