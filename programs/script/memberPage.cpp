#include "memberPage.h"

#include "Interpreter.h"
#include "members.h"

#include <OrvelCore/script/ScriptLayer.h>

#include <QtCore/QList>
#include <QtCore/QStringList>

#include <stdexcept>

namespace {

/// The examples of one class.
struct Section
{
    QByteArray identifier;
    QByteArray setup;
    QList<QByteArray> lines;
};

QList<Section> sectionsOf(QByteArray const &examples)
{
    QList<Section> sections;
    for (QByteArray const &line : examples.split('\n')) {
        if (line.startsWith('[')) {
            int const end = line.indexOf(']');
            sections.append({line.mid(1, end - 1), line.mid(end + 1).trimmed(), {}});
        } else if (!line.trimmed().isEmpty() && !sections.isEmpty()) {
            sections.last().lines.append(line.trimmed());
        }
    }
    return sections;
}

QByteArray row(proxyMemberDescS const &member, Section const &section, QByteArray const &line)
{
    QByteArray const call = *member.name != '\0' ? "." + QByteArray(member.name) : ".(";
    if (!line.contains(call)) {
        throw std::runtime_error(("no use of " + call + " in: " + line).toStdString());
    }
    Interpreter interpreter;
    Interpreter::Outcome const outcome =
        interpreter.run(section.setup + "\n" + line, section.identifier, 0);
    if (!outcome.ok) {
        throw std::runtime_error((line + ": " + outcome.text).toStdString());
    }
    QByteArray const name = *member.name != '\0' ? QByteArray(member.name) : "\"\"";
    return "| `" + name + "` | " + kindName(member.kind) + " | " + parameterNames(member, "`") +
           " | `" + line + "` | `" + outcome.text + "` |\n";
}

QByteArray sectionText(Section const &section)
{
    proxyMemberDescListS const *list =
        proxyFactoryC::instance().findClass(mzIIDS(section.identifier.constData()));
    if (list == nullptr) {
        throw std::runtime_error(("no class " + section.identifier).toStdString());
    }
    QByteArray text = "\n## " + section.identifier + "\n\nThe lines run after `" + section.setup +
                      "`.\n\n| Member | Kind | Parameters | Script | Result |\n"
                      "|---|---|---|---|---|\n";
    int index = 0;
    for (; list->members[index].name != nullptr; ++index) {
        if (index == section.lines.size()) {
            break;
        }
        text += row(list->members[index], section, section.lines[index]);
    }
    if (list->members[index].name != nullptr || index != section.lines.size()) {
        throw std::runtime_error(
            ("one line a member, please: " + section.identifier).toStdString());
    }
    return text;
}

} // namespace

QByteArray memberPage(QByteArray const &examples)
{
    QByteArray page = "# Members of the script classes\n\n"
                      "Made by running each line; do not edit. The members stand in the order of "
                      "the classes' tables, which decides between members of one name.\n";
    QList<Section> const sections = sectionsOf(examples);
    for (Section const &section : sections) {
        page += sectionText(section);
    }
    if (sections.size() != proxyFactoryC::instance().classes().size()) {
        throw std::runtime_error("a section for each class, please");
    }
    return page;
}
