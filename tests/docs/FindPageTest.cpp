// The page docs/find.md names every exported function and class, and no others.

#include <gtest/gtest.h>

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

namespace {

QString contentOf(QString const &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

QSet<QString> capturesOf(QRegularExpression const &expression, QString const &text)
{
    QSet<QString> names;
    for (auto match = expression.globalMatch(text); match.hasNext();) {
        names.insert(match.next().captured(1));
    }
    return names;
}

/// The functions outside classes and the classes that the public headers export.
QSet<QString> exportedNames()
{
    QSet<QString> names;
    QDirIterator files(QStringLiteral(ORVEL_SOURCE_DIR "/libs/OrvelMath"), {QStringLiteral("*.h")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QString const path = files.next();
        if (path.endsWith(QStringLiteral("_p.h")) || path.endsWith(QStringLiteral("Export.h"))) {
            continue;
        }
        QString const text = contentOf(path).remove(QRegularExpression(QStringLiteral("//[^\n]*")));
        names += capturesOf(QRegularExpression(QStringLiteral(
                                "ORVELMATH_EXPORT\\s+(?!class|struct)[^;{(]*?(\\w+)\\s*\\(")),
                            text);
        names += capturesOf(
            QRegularExpression(QStringLiteral("(?:class|struct)\\s+ORVELMATH_EXPORT\\s+(\\w+)")),
            text);
    }
    return names;
}

/// The words between backticks in the page's tables, without namespaces, classes and operators.
QSet<QString> namesOfThePage()
{
    return capturesOf(QRegularExpression(QStringLiteral("`(?:\\w+::)*(\\w+)`")),
                      contentOf(QStringLiteral(ORVEL_SOURCE_DIR "/docs/find.md")));
}

std::string listOf(QSet<QString> const &names)
{
    QStringList sorted(names.begin(), names.end());
    sorted.sort();
    return sorted.join(QStringLiteral(", ")).toStdString();
}

} // namespace

TEST(FindPage, NamesEveryExportedFunctionAndClass)
{
    QSet<QString> const exported = exportedNames();
    ASSERT_GT(exported.size(), 150);
    EXPECT_EQ("", listOf(exported - namesOfThePage()));
}

TEST(FindPage, LeadsToHeadersThatExist)
{
    QRegularExpression const header(QStringLiteral("`(\\w+/\\w+\\.h)`"));
    QSet<QString> const headers =
        capturesOf(header, contentOf(QStringLiteral(ORVEL_SOURCE_DIR "/docs/find.md")));
    ASSERT_FALSE(headers.isEmpty());
    for (QString const &name : headers) {
        EXPECT_TRUE(QFile::exists(QStringLiteral(ORVEL_SOURCE_DIR "/libs/OrvelMath/") + name))
            << name.toStdString();
    }
}
