#include "members.h"

#include <algorithm>

namespace {

template <typename Visit>
void forEachMember(proxyMemberDescListS const &list, Visit visit)
{
    for (proxyMemberDescS const *member = list.members; member->name != nullptr; ++member) {
        visit(*member);
    }
}

QByteArray identifierOf(proxyMemberDescListS const &list)
{
    return list.objectIdentifier != nullptr ? list.objectIdentifier : list.name;
}

QByteArray lineOf(proxyMemberDescListS const &list, proxyMemberDescS const &member)
{
    QByteArray const name = *member.name != '\0' ? QByteArray(member.name) : "(the object itself)";
    QByteArray const parameters =
        member.parameterCount > 0 ? "(" + parameterNames(member, "") + ")" : QByteArray();
    return "  " + identifierOf(list) + "  " + name + parameters + "  " + kindName(member.kind) +
           "\n";
}

} // namespace

QByteArray kindName(int kind)
{
    switch (kind) {
    case proxyPropertyRead:
        return "read";
    case proxyPropertyWrite:
        return "write";
    default:
        return "method";
    }
}

QByteArray parameterNames(proxyMemberDescS const &member, char const *mark)
{
    QByteArray names;
    for (int i = 1; i <= member.parameterCount; ++i) {
        std::type_info const &type = *member.signature()[i].type;
        if (i > 1) {
            names += ", ";
        }
        names += mark + mzComReadableTypeName(mzComTypeInfoToName(type)).bytes() + mark;
    }
    return names.isEmpty() ? "none" : names;
}

QList<QByteArray> memberNames()
{
    QList<QByteArray> names;
    for (proxyMemberDescListS const *list : proxyFactoryC::instance().classes()) {
        forEachMember(*list, [&](proxyMemberDescS const &member) {
            if (*member.name != '\0' && !names.contains(member.name)) {
                names.append(member.name);
            }
        });
    }
    std::sort(names.begin(), names.end());
    return names;
}

QByteArray helpText(QByteArray const &topic)
{
    QByteArray text;
    for (proxyMemberDescListS const *list : proxyFactoryC::instance().classes()) {
        QByteArray const identifier = identifierOf(*list);
        bool const isAsked = identifier == topic || identifier.endsWith("." + topic);
        if (topic.isEmpty()) {
            text += "  " + identifier + "\n";
        }
        forEachMember(*list, [&](proxyMemberDescS const &member) {
            if (!topic.isEmpty() && (isAsked || topic == member.name)) {
                text += lineOf(*list, member);
            }
        });
    }
    if (topic.isEmpty()) {
        return "Classes, which Orvel.create makes by these names and Orvel.factory by its "
               "members:\n" +
               text + "help NAME shows a class or a member; exit leaves.\n";
    }
    return text.isEmpty() ? "There is no member and no class " + topic + ".\n" : text;
}
