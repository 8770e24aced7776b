#include "Listing.h"

#include "Outputs.h"

void Listing::add(std::string const &heading, Facts const &facts)
{
    switch (m_form) {
    case Form::table:
        printOut(QByteArray::fromStdString(heading) + '\n' + tableText(facts));
        break;
    case Form::json:
        printOut(jsonLine(facts));
        break;
    case Form::csv:
        m_rows.push_back(facts);
        break;
    case Form::none:
        break;
    }
}

void Listing::addError(std::string const &file, std::string const &error)
{
    if (m_form != Form::table) {
        add(file, {textFact("file", "file", file), textFact("error", "error", error)});
    }
}

void Listing::end()
{
    if (m_form == Form::csv) {
        printOut(csvText(m_rows));
    }
}
