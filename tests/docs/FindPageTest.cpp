// The page docs/find.md names every exported function and class, and headers that exist.

#include "pages.h"

TEST(FindPage, NamesEveryExportedFunctionAndClass)
{
    QSet<QString> const exported =
        pages::exportedNames(QStringLiteral("OrvelMath"), QStringLiteral("ORVELMATH_EXPORT"));
    ASSERT_GT(exported.size(), 150);
    EXPECT_EQ("", pages::listOf(exported -
                                pages::namesIn(pages::sourceOf(QStringLiteral("docs/find.md")))));
}

TEST(FindPage, LeadsToHeadersThatExist)
{
    QString const page = pages::sourceOf(QStringLiteral("docs/find.md"));
    QRegularExpression const math(QStringLiteral("`(\\w+/\\w+\\.h)`"));
    QRegularExpression const exact(QStringLiteral("`(OrvelExact/\\w+/\\w+\\.h)`"));
    QSet<QString> headers = pages::capturesOf(exact, page);
    ASSERT_GT(headers.size(), 10);
    for (QString const &name : pages::capturesOf(math, page)) {
        headers.insert(QStringLiteral("OrvelMath/") + name);
    }
    ASSERT_GT(headers.size(), 30);
    for (QString const &name : headers) {
        EXPECT_TRUE(QFile::exists(QStringLiteral(ORVEL_SOURCE_DIR "/libs/") + name))
            << name.toStdString();
    }
}
