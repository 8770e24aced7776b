#include "prompt.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <editline/readline.h>

#include <cstdio>
#include <cstdlib>

int runPrompt(Interpreter &interpreter)
{
    QByteArray const historyFile =
        QFile::encodeName(QDir::home().filePath(".orvel_script_history"));
    using_history();
    read_history(historyFile.constData());
    std::puts("f = Orvel.factory gives the factory; exit leaves.");
    for (int number = 1; char *line = readline("orvel> "); ++number) {
        QByteArray const script = QByteArray(line).trimmed();
        if (!script.isEmpty()) {
            add_history(line);
        }
        std::free(line);
        if (script == "exit") {
            break;
        }
        if (script.isEmpty()) {
            continue;
        }
        Interpreter::Outcome const outcome = interpreter.run(script, "prompt", number);
        std::printf("%s %s\n", outcome.ok ? "=>" : "error:", outcome.text.constData());
    }
    write_history(historyFile.constData());
    return 0;
}
