#include "Facts.h"

#include "Measure.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <algorithm>

namespace {

std::string withUnit(std::string const &text, std::string const &unit)
{
    return unit.empty() ? text : text + " " + unit;
}

QString csvField(QJsonValue const &value)
{
    if (value.isArray()) {
        QStringList parts;
        for (QJsonValue const &part : value.toArray()) {
            parts.append(csvField(part));
        }
        return parts.join(QLatin1Char(' '));
    }
    return value.toVariant().toString();
}

QByteArray quoted(QString text)
{
    if (text.contains(QLatin1Char(',')) || text.contains(QLatin1Char('"')) ||
        text.contains(QLatin1Char('\n'))) {
        text = QLatin1Char('"') + text.replace(QLatin1String("\""), QLatin1String("\"\"")) +
               QLatin1Char('"');
    }
    return text.toUtf8();
}

} // namespace

Fact textFact(std::string const &key, std::string const &label, std::string const &text)
{
    return {key, label, QString::fromStdString(text), text};
}

Fact countFact(std::string const &key, std::string const &label, std::size_t count)
{
    return {key, label, double(count), std::to_string(count)};
}

Fact numberFact(std::string const &key, std::string const &label, double value,
                std::string const &unit)
{
    return {key, label, value, withUnit(numberText(value), unit)};
}

Fact numbersFact(std::string const &key, std::string const &label,
                 std::vector<double> const &values, std::string const &separator,
                 std::string const &unit)
{
    QJsonArray array;
    std::string text;
    for (double const value : values) {
        array.append(value);
        text += (text.empty() ? "" : separator) + numberText(value);
    }
    return {key, label, array, withUnit(text, unit)};
}

QByteArray tableText(Facts const &facts)
{
    std::size_t width = 0;
    for (Fact const &fact : facts) {
        width = std::max(width, fact.text.empty() ? 0 : fact.label.size());
    }
    std::string out;
    for (Fact const &fact : facts) {
        if (!fact.text.empty()) {
            out += "  " + fact.label + std::string(width + 2 - fact.label.size(), ' ') + fact.text +
                   "\n";
        }
    }
    return QByteArray::fromStdString(out);
}

QByteArray jsonLine(Facts const &facts)
{
    QJsonObject object;
    for (Fact const &fact : facts) {
        object.insert(QString::fromStdString(fact.key), fact.value);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

QByteArray csvText(std::vector<Facts> const &rows)
{
    std::vector<std::string> keys;
    for (Facts const &row : rows) {
        for (Fact const &fact : row) {
            if (std::find(keys.begin(), keys.end(), fact.key) == keys.end()) {
                keys.push_back(fact.key);
            }
        }
    }
    QByteArray text;
    for (std::string const &key : keys) {
        text += (text.isEmpty() ? "" : ",") + QByteArray::fromStdString(key);
    }
    text += "\r\n";
    for (Facts const &row : rows) {
        for (std::string const &key : keys) {
            auto const fact =
                std::find_if(row.begin(), row.end(), [&](Fact const &f) { return f.key == key; });
            text += key == keys.front() ? "" : ",";
            text += fact == row.end() ? QByteArray() : quoted(csvField(fact->value));
        }
        text += "\r\n";
    }
    return text;
}
