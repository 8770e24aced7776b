#pragma once

/// @file
/// What the script layer knows of its classes, as text for people.

#include <OrvelCore/script/ScriptLayer.h>

#include <QtCore/QByteArray>
#include <QtCore/QList>

/// "method", "read" or "write".
QByteArray kindName(int kind);

/// The types of a member's parameters, each between `mark`s: "double, double"; "none" without any.
QByteArray parameterNames(proxyMemberDescS const &member, char const *mark);

/// The names of all members of all classes, each once, sorted; without the default members.
QList<QByteArray> memberNames();

/// What the member tables say: of a member by its name, of a class by its identifier or the end of
/// it, or of all classes for an empty topic. Says so where there is nothing of that name.
QByteArray helpText(QByteArray const &topic);
