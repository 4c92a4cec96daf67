#!/usr/bin/env python3
# Runs velok3-uci as a child process and talks UCI to it: handshake, positions and moves, perft
# counts, the engine's choices, commands during a search and queued behind it, bad input.
import queue, re, subprocess, sys, threading, time, unittest

ENGINE = ""
KIWIPETE = "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq -"
# A middlegame rich enough that a Level 3 search runs for a good while.
BUSY = "r1bq1rk1/pp2bppp/2n1pn2/3p4/2PP4/2N1PN2/PP2BPPP/R2QKB1R w KQ - 0 8"


class Engine:
    """One velok3-uci process, its output read line by line on a thread of its own."""

    def __init__(self):
        self.proc = subprocess.Popen([ENGINE], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.lines = queue.Queue()
        self.reader = threading.Thread(target=self._read, daemon=True)
        self.reader.start()

    def _read(self):
        for line in self.proc.stdout:
            self.lines.put(line.rstrip("\n"))
        self.lines.put(None)

    def send(self, *lines):  # in one write, as a GUI that sends a burst
        self.proc.stdin.write("".join(line + "\n" for line in lines))
        self.proc.stdin.flush()

    def read_until(self, pattern, timeout=120, quiet=False):
        """Lines up to the first that matches `pattern`; with `quiet`, all lines of `timeout` s."""
        seen, deadline = [], time.monotonic() + timeout
        while True:
            try:
                line = self.lines.get(timeout=max(0.01, deadline - time.monotonic()))
            except queue.Empty:
                assert quiet, f"no line matching {pattern!r} within {timeout}s; got {seen}"
                return seen
            assert line is not None, f"engine ended before {pattern!r}; got {seen}"
            seen.append(line)
            if re.match(pattern, line):
                return seen

    def sync(self, *lines):
        """Sends `lines` and isready; the lines up to readyok: what those commands printed."""
        self.send(*lines, "isready")
        return self.read_until("readyok$")

    def fen(self, position=None):
        self.send(*([position] if position else []), "d")
        return self.read_until("Position: ")[-2][len("Fen: "):]

    def perft(self, depth, position=None):
        self.send(*([position] if position else []), f"go perft {depth}")
        lines = self.read_until("Nodes searched: ")
        return ({l.split(":")[0]: int(l.split()[1]) for l in lines if re.match(r"\w+: \d+$", l)},
                int(lines[-1].split()[-1]))

    def best(self, go="go", timeout=600):
        self.send(go)
        lines = self.read_until("bestmove ", timeout)
        return lines[-1].split()[1], [l for l in lines if l.startswith("info depth")]

    def quit(self):
        self.send("quit")
        return self.proc.wait(timeout=30)

    def close(self):
        self.proc.kill()
        self.reader.join(10)  # the output ends with the process
        self.proc.__exit__(None, None, None)  # closes the pipes, waits for the process


class UciCase(unittest.TestCase):
    def setUp(self):
        self.engine = Engine()
        self.addCleanup(self.engine.close)


class Protocol(UciCase):
    def test_handshake_and_the_end_of_input(self):
        self.engine.send("uci")
        lines = set(self.engine.read_until("uciok$", 30))
        self.assertTrue({"id name Velok-3", "option name Level type spin default 2 min 1 max 3"} <= lines)
        self.engine.sync("ucinewgame")
        self.engine.proc.stdin.close()
        self.assertEqual(self.engine.proc.wait(timeout=30), 0)

    def test_positions_castling_en_passant_and_promotions_follow_the_moves(self):
        for position, fen in [
                ("startpos moves e2e4 e7e5 g1f3", "rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b KQkq - 1 2"),
                ("startpos moves g1f3 g8f6 h1g1 h8g8 g1h1 g8h8", "rnbqkb1r/pppppppp/5n2/8/8/5N2/PPPPPPPP/RNBQKB1R w Qq - 6 4"),
                (f"fen {KIWIPETE} moves e1g1 e8c8", "2kr3r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R4RK1 w - - 2 2"),
                ("startpos moves e2e4 a7a6 e4e5 d7d5 e5d6", "rnbqkbnr/1pp1pppp/p2P4/8/8/8/PPPP1PPP/RNBQKBNR b KQkq - 0 3"),
                ("fen 4k3/P7/8/8/8/8/8/4K3 w - - 0 1 moves a7a8n", "N3k3/8/8/8/8/8/8/4K3 b - - 0 1"),
                ("fen 4k3/8/8/8/8/8/1p6/R3K3 b - - 0 1 moves b2a1r", "4k3/8/8/8/8/8/8/r3K3 w - - 0 2")]:
            self.assertEqual(self.engine.fen("position " + position), fen)
        self.engine.send("position fen 4k3/8/8/8/8/8/4P3/4K3 b - - 0 1 moves e8d7 e2e4", "d")
        lines = self.engine.read_until("Position: ")
        self.assertEqual((lines[0], lines[4], lines[-1]), ("8 . . . . . . . .", "4 . . . . P . . .",
                         "Position: position fen 4k3/8/8/8/8/8/4P3/4K3 b - - 0 1 moves e8d7 e2e4"))

    def test_published_perft_counts(self):
        for position, depth, total, roots in [
                ("startpos", 4, 197281, 20), (f"fen {KIWIPETE}", 3, 97862, 48), ("startpos moves e2e4", 3, 13160, 20),
                ("fen r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq - 0 1", 3, 9467, 6),
                ("fen 4k3/P7/8/8/8/8/8/4K3 w - - 0 1", 1, 9, 9)]:
            divided, counted = self.engine.perft(depth, "position " + position)
            self.assertEqual((counted, sum(divided.values()), len(divided)), (total, total, roots))

    def test_worked_replies_depths_and_scores(self):
        for setup, go, best, plies, score in [
                ("startpos moves e2e4", "go depth 1", "e7e5", 4, "cp 0"), ("startpos moves e2e4", "go depth 5", "d7d5", 6, "cp -1"),
                ("startpos moves d2d4", "go depth 4", "d7d5", 4, "cp 0"), ("startpos moves d2d4", "go depth 6", "d7d5", 6, "cp 0"),
                # Main search (Black keeps pawns) and mating search (a lone king) both see mate in one.
                ("fen 6k1/5ppp/8/8/8/8/5PPP/R5K1 w - - 0 1", "go", "a1a8", 4, "mate 1"),
                ("fen 6k1/8/6K1/8/8/8/8/R7 w - - 0 1", "go", "a1a8", 6, "mate 1"),
                ("fen 6k1/5ppp/8/8/8/8/5PPP/R5K1 w - - 0 1 moves a1a8", "go", "0000", 6, "mate 0"),
                ("fen 7k/5Q2/6K1/8/8/8/8/8 b - - 0 1", "go", "0000", 6, "cp 0"),
                # Bad parameters are reported and skipped: the search runs at the Level option.
                ("startpos moves e2e4", "go depth searchmoves zz depth x wtime -5 sideways", "e7e5", 4, "cp 0")]:
            with self.subTest(setup=setup, go=go):
                self.engine.send("setoption name Level value 1", "position " + setup)
                chosen, info = self.engine.best(go + " wtime 1000 btime 1000")
                fields = info[-1].split()
                self.assertEqual(chosen, best)
                self.assertEqual(" ".join(fields[fields.index("score") + 1:][:2]), score)
                if best != "0000":
                    self.assertEqual((fields[2], fields[fields.index("pv") + 1]), (str(plies), best))


class DuringSearch(UciCase):
    def test_isready_and_stop_act_at_once(self):
        self.engine.send("setoption name Level value 3")
        legal, _ = self.engine.perft(1, f"position fen {BUSY}")
        self.engine.send("go", "isready")
        self.assertFalse(any(l.startswith("bestmove") for l in self.engine.read_until("readyok$", 10)))
        started = time.monotonic()
        self.engine.send("stop")
        self.assertIn(self.engine.read_until("bestmove ", 600)[-1].split()[1], legal)
        # A stop takes effect at the next root move, long before the search would end.
        self.assertLess(time.monotonic() - started, 60)

    def test_infinite_and_ponder_wait_for_their_release(self):
        self.engine.send("setoption name Level value 1", "position startpos moves e2e4")
        for go, release in [("go infinite", "stop"), ("go ponder wtime 1000 btime 1000", "ponderhit")]:
            with self.subTest(go=go):
                self.engine.send(go)
                self.assertFalse(any(l.startswith("bestmove") for l in self.engine.read_until("bestmove ", 2.0, True)))
                self.engine.send(release)
                self.assertEqual(self.engine.read_until("bestmove ", 30)[-1], "bestmove e7e5")
        # A quit ends the program also while a search runs or waits.
        self.engine.send("go infinite")
        self.assertEqual(self.engine.quit(), 0)

    def test_commands_behind_a_search_wait_for_it_and_a_stop_behind_them_does_not(self):
        self.engine.send("setoption name Level value 1", "position startpos moves d2d4", "go infinite",
                         "position startpos moves e2e4", "stop", "go depth 4")
        # The stop may reach the first search before or after it starts: any move of Black's.
        self.assertRegex(self.engine.read_until("bestmove ", 60)[-1], "bestmove [a-h][78][a-h][3-6]$")
        self.assertEqual(self.engine.read_until("bestmove ", 60)[-1], "bestmove e7e5")


class BadInput(UciCase):
    def test_every_bad_line_is_reported_and_changes_nothing(self):
        before = self.engine.fen("position startpos moves e2e4")
        for line, reply in [
                ("xyzzy", "unknown command"), ("setoption name Level value 9", "Level takes"),
                ("setoption name Hash value 16", "unknown option"), ("position banana", "position ignored"),
                ("position fen rnbqkbnr/pppppppp/9/8/8/8/PPPPPPPP/RNBQKBNR w", "position ignored"),
                ("position fen rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR x", "position ignored"),
                ("position fen 4k3/8/8/8/8/8/8/4K2K w - - 0 1", "no game can reach"),
                ("position fen 4k2R/8/8/8/8/8/8/4K3 w - - 0 1", "no game can reach"),
                ("position fen P3k3/8/8/8/8/8/8/4K3 w", "no game can reach"),
                ("position fen BQQQQQQB/Q6Q/Q6Q/Q6Q/Q6Q/Q6Q/Q6Q/QQQQQQQQ w - - 0 1", "no game can reach"),
                ("go perft 0", "go perft needs"), ("go perft 99", "go perft needs"),
                ("\x01\x7f garbage", "unknown command"), ("position " + "a" * 100000, "position ignored")]:
            with self.subTest(line=line[:60]):
                self.assertIn(reply, self.engine.sync(line)[0])
        self.assertEqual(self.engine.fen(), before)

    def test_bad_moves_keep_the_moves_before_them(self):
        for bad in ["e7e4", "e2", "zzzz", "0000", "e1g1", "a1a1"]:
            reply = self.engine.sync(f"position startpos moves e2e4 e7e5 {bad} g1f3")[0]
            self.assertTrue(reply.startswith(f"info string move {bad} ignored"))
            self.assertEqual(self.engine.fen().split()[:2], ["rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR", "w"])
        for position, why in [("startpos moves e2e4q", "only a promotion"),
                              ("fen 4k3/P7/8/8/8/8/8/4K3 w - - 0 1 moves a7a8", "needs the piece letter"),
                              # A FEN's own en passant field is not read: only a double step after it counts.
                              ("fen rnbqkbnr/ppp1pppp/8/3pP3/8/8/PPPP1PPP/RNBQKBNR w KQkq d6 0 3 moves e5d6", "e5d6 ignored")]:
            self.assertIn(why, self.engine.sync("position " + position)[0])
        # A game longer than the history is cut at its length.
        self.assertIn("longest length", self.engine.sync("position startpos moves " + "g1f3 g8f6 f3g1 f6g8 " * 101)[0])
        self.assertEqual(self.engine.perft(1)[1], 20)
        self.assertEqual(self.engine.quit(), 0)


if __name__ == "__main__":
    ENGINE = sys.argv.pop(1) if len(sys.argv) > 1 else sys.exit("usage: test_uci.py path/to/velok3-uci")
    unittest.main()
