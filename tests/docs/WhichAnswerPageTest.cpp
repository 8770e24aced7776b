// The page docs/which-answer.md and the headers of both libraries name the same functions.

#include "pages.h"

#include <QtCore/QHash>
#include <QtCore/QVector>

namespace {

/// A row of the page's tables: the functions of OrvelMath and their sisters.
struct Row
{
    QSet<QString> math;
    QSet<QString> exact;
};

QString page()
{
    return pages::sourceOf(QStringLiteral("docs/which-answer.md"));
}

QVector<Row> rowsOfThePage()
{
    QVector<Row> rows;
    for (QString const &line : page().split(QLatin1Char('\n'))) {
        QStringList const cells = line.split(QLatin1Char('|'));
        if (cells.size() > 3 && cells.at(2).contains(QLatin1Char('`'))) {
            rows.append({pages::namesIn(cells.at(1)), pages::namesIn(cells.at(2))});
        }
    }
    return rows;
}

QSet<QString> wordsOf(QString const &library)
{
    return pages::capturesOf(QRegularExpression(QStringLiteral("\\b(\\w+)\\b")),
                             pages::withoutComments(pages::headersOf(library)));
}

/// The comment above each function and class of a library's headers, all overloads' in one.
QHash<QString, QString> commentsOf(QString const &library)
{
    QHash<QString, QString> comments;
    QRegularExpression const block(QStringLiteral(
        "((?:[ \\t]*///[^\\n]*\\n)+)([^;{/]*?(\\w+)(?=\\s*[({]|\\s*:\\s*public)[^;{/]*[;{])"));
    QString const text = pages::headersOf(library);
    for (auto match = block.globalMatch(text); match.hasNext();) {
        QRegularExpressionMatch const found = match.next();
        comments[found.captured(3)] += found.captured(1);
    }
    return comments;
}

/// True if the comment has one of the names after "see".
bool sees(QString const &comment, QSet<QString> const &names)
{
    QString const after = comment.mid(comment.indexOf(QStringLiteral("@see")));
    for (QString const &name : names) {
        if (comment.contains(QStringLiteral("@see")) &&
            after.contains(QRegularExpression(QStringLiteral("\\b%1\\b").arg(name)))) {
            return true;
        }
    }
    return false;
}

} // namespace

TEST(WhichAnswerPage, NamesEveryExportedFunctionAndClassOfOrvelExact)
{
    QSet<QString> exported =
        pages::exportedNames(QStringLiteral("OrvelExact"), QStringLiteral("ORVELEXACT_EXPORT"));
    // Parts of the predicates that are inline.
    exported -=
        {QStringLiteral("unfilteredOrientation2d"), QStringLiteral("unfilteredOrientation3d"),
         QStringLiteral("unfilteredInCircle"), QStringLiteral("unfilteredInSphere")};
    exported += {QStringLiteral("orientation2d"), QStringLiteral("orientation3d")};
    ASSERT_GT(exported.size(), 35);
    EXPECT_EQ("", pages::listOf(exported - pages::namesIn(page())));
}

TEST(WhichAnswerPage, NamesOnlyWhatTheHeadersHave)
{
    QSet<QString> const math = wordsOf(QStringLiteral("OrvelMath"));
    QSet<QString> const exact = wordsOf(QStringLiteral("OrvelExact"));
    QVector<Row> const rows = rowsOfThePage();
    ASSERT_GT(rows.size(), 20);
    for (Row const &row : rows) {
        EXPECT_EQ("", pages::listOf(row.math - math));
        EXPECT_EQ("", pages::listOf(row.exact - exact));
    }
    EXPECT_EQ("", pages::listOf(pages::namesIn(page()) - math - exact));
}

TEST(WhichAnswerPage, LeadsToHeadersThatExist)
{
    QRegularExpression const header(QStringLiteral("`(\\w+/\\w+\\.h)`"));
    QSet<QString> const headers = pages::capturesOf(header, page());
    ASSERT_GT(headers.size(), 10);
    for (QString const &name : headers) {
        EXPECT_TRUE(QFile::exists(QStringLiteral(ORVEL_SOURCE_DIR "/libs/OrvelExact/") + name))
            << name.toStdString();
    }
}

TEST(WhichAnswerPage, HasSistersThatNameEachOther)
{
    QHash<QString, QString> const math = commentsOf(QStringLiteral("OrvelMath"));
    QHash<QString, QString> const exact = commentsOf(QStringLiteral("OrvelExact"));
    int pairs = 0;
    for (Row const &row : rowsOfThePage()) {
        QString sisters;
        for (QString const &name : row.exact) {
            sisters += exact.value(name);
        }
        for (QString const &name : row.math) {
            if (!math.contains(name)) {
                continue; // a namespace, or described together with the function above it
            }
            ++pairs;
            EXPECT_TRUE(sees(math.value(name), row.exact)) << name.toStdString();
            EXPECT_TRUE(sees(sisters, {name})) << name.toStdString();
        }
    }
    EXPECT_GT(pairs, 25);
}

TEST(FindPage, HasExactAnswersOfTheOtherPageOnly)
{
    QString const text = pages::sourceOf(QStringLiteral("docs/find.md"));
    QSet<QString> const names =
        pages::capturesOf(QRegularExpression(QStringLiteral("`orvelExact::(\\w+)`")), text);
    ASSERT_GT(names.size(), 20);
    EXPECT_EQ("", pages::listOf(names - pages::namesIn(page())));
}
