#pragma once

/// @file
/// Pages and headers as text.

#include <gtest/gtest.h>

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

namespace pages {

inline QString contentOf(QString const &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// A file of the sources, by its path from their root.
inline QString sourceOf(QString const &path)
{
    return contentOf(QStringLiteral(ORVEL_SOURCE_DIR "/") + path);
}

/// The text of all public headers of a library.
inline QString headersOf(QString const &library)
{
    QString text;
    QDirIterator files(QStringLiteral(ORVEL_SOURCE_DIR "/libs/") + library, {QStringLiteral("*.h")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QString const path = files.next();
        if (!path.endsWith(QStringLiteral("_p.h")) && !path.endsWith(QStringLiteral("Export.h"))) {
            text += contentOf(path);
        }
    }
    return text;
}

inline QString withoutComments(QString text)
{
    return text.remove(QRegularExpression(QStringLiteral("//[^\n]*")));
}

inline QSet<QString> capturesOf(QRegularExpression const &expression, QString const &text)
{
    QSet<QString> names;
    for (auto match = expression.globalMatch(text); match.hasNext();) {
        names.insert(match.next().captured(1));
    }
    return names;
}

/// The functions outside classes and the classes that a library exports by a macro.
inline QSet<QString> exportedNames(QString const &library, QString const &macro)
{
    QString const text = withoutComments(headersOf(library));
    QRegularExpression const function(macro +
                                      QStringLiteral("\\s+(?!class|struct)[^;{(]*?(\\w+)\\s*\\("));
    QRegularExpression const type(QStringLiteral("(?:class|struct)\\s+") + macro +
                                  QStringLiteral("\\s+(\\w+)"));
    return capturesOf(function, text) + capturesOf(type, text);
}

/// The words between backticks, without namespaces, classes and operators.
inline QSet<QString> namesIn(QString const &text)
{
    return capturesOf(QRegularExpression(QStringLiteral("`(?:\\w+::)*(\\w+)`")), text);
}

inline std::string listOf(QSet<QString> const &names)
{
    QStringList sorted(names.begin(), names.end());
    sorted.sort();
    return sorted.join(QStringLiteral(", ")).toStdString();
}

} // namespace pages
