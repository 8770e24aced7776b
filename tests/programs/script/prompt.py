"""Talks to the prompt of orvel-script through a terminal: prompt.py PROGRAM"""

import os
import pty
import re
import select
import signal
import sys
import tempfile
import time


class Session:
    def __init__(self, program, home, *words):
        self.text = ""
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.environ.update(HOME=home, TERM="dumb", INPUTRC="/dev/null")
            os.execv(program, [program, *words])

    def wait_for(self, expected, seconds=20):
        """Waits for a text and gives what came before it."""
        end = time.time() + seconds
        while expected not in self.text:
            ready, _, _ = select.select([self.terminal], [], [], max(0.0, end - time.time()))
            assert ready, "waiting for %r, got %r" % (expected, self.text)
            try:
                part = os.read(self.terminal, 4096)
            except OSError:
                part = b""
            assert part, "ended while waiting for %r, got %r" % (expected, self.text)
            self.text += re.sub(r"\x1b\[[0-9;?]*[A-Za-z]", "", part.decode(errors="replace"))
        before, _, self.text = self.text.partition(expected)
        return before

    def send(self, text):
        os.write(self.terminal, text.encode())

    def ask(self, line, expected):
        self.send(line + "\n")
        before = self.wait_for(expected)
        self.wait_for("orvel> ")
        return before

    def exit_code(self):
        while True:
            try:
                if not os.read(self.terminal, 4096):
                    break
            except OSError:
                break
        _, status = os.waitpid(self.pid, 0)
        return os.waitstatus_to_exitcode(status)


def main(program):
    with tempfile.TemporaryDirectory() as home:
        session = Session(program, home)
        session.wait_for("orvel> ")
        # State stays from input to input.
        session.ask("x = 20", "=> 20")
        session.ask("x + 22", "=> 42")
        # An input goes on until it is whole.
        session.send("def twice(n)\n")
        session.wait_for(".. ")
        session.send("n * 2\n")
        session.wait_for(".. ")
        session.ask("end", "=> :twice")
        session.ask("twice(x)", "=> 40")
        # Errors say where, and the prompt goes on.
        session.ask("nonsense", "error: prompt:")
        # Ctrl-C stops what runs and stays in the prompt, with all that was there before.
        session.send("x = 1; while true; end\n")
        time.sleep(0.5)
        session.send("\x03")
        session.wait_for("interrupted")
        session.wait_for("orvel> ")
        session.ask("x", "=> 20")
        # Help comes from the member tables.
        session.ask("help cross", "linquet.vector3d  cross(")
        session.ask("help", "linquet.matrix4x4")
        session.ask("help nothing", "There is no member and no class nothing")
        # Tab completes a member.
        session.ask("f = Orvel.factory", "=> mathfactory")
        session.send("f.createmat4\t")
        session.wait_for("createmat4x4")
        session.send(".ident\n")
        session.wait_for("=> matrix4x4(1, 0")
        session.wait_for("orvel> ")
        # A file runs, with ARGV as in Ruby.
        with open(os.path.join(home, "some.rb"), "w") as file:
            file.write("def loaded\n  ARGV.size + 5\nend\n")
        session.ask("load '%s/some.rb'" % home, "=> true")
        session.ask("loaded", "=> 5")
        session.send("exit 7\n")
        assert session.exit_code() == 7

        # The history is there again, whatever ended the last session.
        with open(os.path.join(home, ".orvel_script_history")) as file:
            assert "twice(x)" in file.read().replace("\\040", " ")
        session = Session(program, home)
        session.wait_for("orvel> ")
        session.ask("y = 'unforgettable'", "=> ")
        os.kill(session.pid, signal.SIGKILL)
        with open(os.path.join(home, ".orvel_script_history")) as file:
            assert "unforgettable" in file.read()

        # Limits of time and memory end the input, not the prompt.
        session = Session(program, home, "--time", "1", "--memory", "32")
        session.wait_for("orvel> ")
        session.ask("while true; end", "stopped: the time is over")
        session.ask("'a' * 100_000_000", "error: ")
        session.ask("3 + 4", "=> 7")
        session.send("exit\n")
        assert session.exit_code() == 0


main(sys.argv[1])
