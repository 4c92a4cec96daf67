#!/usr/bin/env python3
# Runs velok3-uci as a child process and talks UCI to it: handshake, positions and moves,
# promotions, perft counts, the engine's choices, stop and isready during a search, bad input.
import os
import queue
import re
import subprocess
import sys
import threading
import time
import unittest

ENGINE = os.environ.get("VELOK3_UCI", "")
START = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"
KIWIPETE = "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq -"
# A middlegame rich enough that a Level 3 search runs for a good while.
BUSY = "r1bq1rk1/pp2bppp/2n1pn2/3p4/2PP4/2N1PN2/PP2BPPP/R2QKB1R w KQ - 0 8"
# Seconds a search may take before a test gives up on it.
SEARCH_TIMEOUT = 600


class Engine:
    """One velok3-uci process, its output read line by line on a thread of its own."""

    def __init__(self):
        self.proc = subprocess.Popen([ENGINE], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                     text=True, bufsize=1)
        self.lines = queue.Queue()
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.proc.stdout:
            self.lines.put(line.rstrip("\n"))
        self.lines.put(None)

    def send(self, *lines):
        for line in lines:
            self.proc.stdin.write(line + "\n")
        self.proc.stdin.flush()

    def read_until(self, pattern, timeout=120):
        """Lines up to and including the first that matches `pattern` (a regular expression)."""
        seen = []
        deadline = time.monotonic() + timeout
        while True:
            try:
                line = self.lines.get(timeout=max(0.01, deadline - time.monotonic()))
            except queue.Empty:
                raise AssertionError(f"no line matching {pattern!r} within {timeout}s; got {seen}")
            if line is None:
                raise AssertionError(f"engine ended before {pattern!r}; got {seen}")
            seen.append(line)
            if re.match(pattern, line):
                return seen

    def quiet_for(self, seconds):
        """The lines that arrive within `seconds`."""
        seen = []
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            try:
                line = self.lines.get(timeout=max(0.01, deadline - time.monotonic()))
            except queue.Empty:
                break
            if line is None:
                break
            seen.append(line)
        return seen

    def sync(self):
        """The lines up to the answer to isready: what the commands before it printed."""
        self.send("isready")
        return self.read_until("readyok$")

    def fen(self):
        self.send("d")
        return self.read_until("Position: ")[-2][len("Fen: "):]

    def perft(self, depth):
        self.send(f"go perft {depth}")
        lines = self.read_until("Nodes searched: ")
        divided = dict(re.match(r"(\w+): (\d+)$", l).groups() for l in lines if re.match(r"\w+: \d+$", l))
        return {m: int(n) for m, n in divided.items()}, int(lines[-1].split()[-1])

    def best(self, go="go", timeout=SEARCH_TIMEOUT):
        self.send(go)
        lines = self.read_until("bestmove ", timeout)
        info = [l for l in lines if l.startswith("info depth")]
        return lines[-1].split()[1], info

    def quit(self):
        self.send("quit")
        return self.proc.wait(timeout=30)

    def close(self):
        if self.proc.poll() is None:
            self.proc.kill()
            self.proc.wait()


class UciCase(unittest.TestCase):
    def setUp(self):
        self.engine = Engine()
        self.addCleanup(self.engine.close)


class Handshake(UciCase):
    def test_identifies_itself_and_its_option(self):
        self.engine.send("uci")
        lines = self.engine.read_until("uciok$", 30)
        self.assertIn("id name Velok-3", lines)
        self.assertTrue(any(l.startswith("id author ") for l in lines))
        self.assertIn("option name Level type spin default 2 min 1 max 3", lines)
        self.engine.sync()
        self.engine.send("ucinewgame")
        self.engine.sync()
        self.assertEqual(self.engine.quit(), 0)

    def test_end_of_input_ends_the_program(self):
        self.engine.proc.stdin.close()
        self.assertEqual(self.engine.proc.wait(timeout=30), 0)


class Positions(UciCase):
    def test_moves_after_the_start_position(self):
        self.engine.send("position startpos moves e2e4 e7e5 g1f3")
        self.assertEqual(self.engine.fen(), "rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b KQkq - 1 2")

    def test_castling_rights_come_from_the_moves_played(self):
        self.engine.send("position startpos moves g1f3 g8f6 h1g1 h8g8 g1h1 g8h8")
        self.assertEqual(self.engine.fen().split()[2], "Qq")
        self.engine.send(f"position fen {KIWIPETE} moves e1g1 e8c8")
        self.assertEqual(self.engine.fen(), "2kr3r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R4RK1 w - - 2 2")

    def test_en_passant_follows_a_double_step(self):
        self.engine.send("position startpos moves e2e4 a7a6 e4e5 d7d5 e5d6")
        self.assertEqual(self.engine.fen(), "rnbqkbnr/1pp1pppp/p2P4/8/8/8/PPPP1PPP/RNBQKBNR b KQkq - 0 3")
        # A FEN's own en passant field is not read: only a double step played after it counts.
        self.engine.send("position fen rnbqkbnr/ppp1pppp/8/3pP3/8/8/PPPP1PPP/RNBQKBNR w KQkq d6 0 3 moves e5d6")
        self.assertTrue(self.engine.sync()[0].startswith("info string move e5d6 ignored"))

    def test_the_position_line_gives_back_the_position(self):
        self.engine.send("position fen 4k3/8/8/8/8/8/4P3/4K3 b - - 0 1 moves e8d7 e2e4")
        self.engine.send("d")
        lines = self.engine.read_until("Position: ")
        self.assertIn("Side to move: black", lines)
        self.assertEqual(lines[-1], "Position: position fen 4k3/8/8/8/8/8/4P3/4K3 b - - 0 1 moves e8d7 e2e4")
        self.assertEqual(lines[0], "8 . . . . . . . .")
        self.assertEqual(lines[4], "4 . . . . P . . .")


class Promotions(UciCase):
    def test_each_piece_letter_gives_that_piece(self):
        for letter in "qrbn":
            self.engine.send(f"position fen 4k3/P7/8/8/8/8/8/4K3 w - - 0 1 moves a7a8{letter}")
            self.assertEqual(self.engine.fen().split()[0], f"{letter.upper()}3k3/8/8/8/8/8/8/4K3")
        self.engine.send("position fen 4k3/8/8/8/8/8/1p6/R3K3 b - - 0 1 moves b2a1n")
        self.assertEqual(self.engine.fen().split()[0], "4k3/8/8/8/8/8/8/n3K3")

    def test_a_promotion_needs_its_letter_and_only_a_promotion_takes_one(self):
        self.engine.send("position fen 4k3/P7/8/8/8/8/8/4K3 w - - 0 1 moves a7a8")
        self.assertIn("needs the piece letter", self.engine.sync()[0])
        self.assertEqual(self.engine.fen().split()[0], "4k3/P7/8/8/8/8/8/4K3")
        self.engine.send("position startpos moves e2e4q")
        self.assertIn("only a promotion", self.engine.sync()[0])

    def test_perft_counts_each_promotion_piece(self):
        self.engine.send("position fen 4k3/P7/8/8/8/8/8/4K3 w - - 0 1")
        divided, total = self.engine.perft(1)
        self.assertTrue({"a7a8q", "a7a8r", "a7a8b", "a7a8n"} <= divided.keys())
        self.assertEqual(total, 9)


class Perft(UciCase):
    def check(self, position, depth, expected, root_moves):
        self.engine.send(position)
        divided, total = self.engine.perft(depth)
        self.assertEqual(total, expected)
        self.assertEqual(sum(divided.values()), total)
        self.assertEqual(len(divided), root_moves)

    def test_published_counts(self):
        self.check("position startpos", 4, 197281, 20)
        self.check(f"position fen {KIWIPETE}", 3, 97862, 48)
        self.check("position fen r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq - 0 1", 3, 9467, 6)

    def test_perft_starts_from_the_moves_played(self):
        self.check("position startpos moves e2e4", 3, 13160, 20)


class Choices(UciCase):
    def choose(self, level, moves):
        self.engine.send(f"setoption name Level value {level}", f"position startpos moves {moves}")
        return self.engine.best()

    def test_worked_replies_to_the_first_move(self):
        for level, moves, reply, plies, cp in [(1, "e2e4", "e7e5", 4, 0), (2, "e2e4", "d7d5", 6, -1),
                                                (1, "d2d4", "d7d5", 4, 0), (2, "d2d4", "d7d5", 6, 0)]:
            with self.subTest(level=level, moves=moves):
                best, info = self.choose(level, moves)
                self.assertEqual(best, reply)
                fields = info[-1].split()
                self.assertEqual(int(fields[fields.index("depth") + 1]), plies)
                self.assertEqual(fields[fields.index("score") + 1:fields.index("score") + 3], ["cp", str(cp)])
                self.assertEqual(fields[fields.index("pv") + 1], reply)
                self.assertGreater(int(fields[fields.index("nodes") + 1]), 0)

    def test_depth_chooses_the_level_of_one_search(self):
        self.engine.send("position fen 4k3/pp6/8/8/8/8/PP6/4K3 w - - 0 1")
        for go, plies in [("go depth 1", 4), ("go depth 5", 6), ("go depth 6 wtime 1000 btime 1000", 6)]:
            _, info = self.engine.best(go)
            self.assertIn(f"info depth {plies} ", info[-1])

    def test_mates_are_reported_in_moves(self):
        # Main search (Black keeps pawns) and mating search (a lone king): both see mate in one.
        for fen in ["6k1/5ppp/8/8/8/8/5PPP/R5K1 w - - 0 1", "6k1/8/6K1/8/8/8/8/R7 w - - 0 1"]:
            self.engine.send(f"position fen {fen}")
            best, info = self.engine.best()
            self.assertEqual(best, "a1a8")
            self.assertIn("score mate 1 ", info[-1])

    def test_no_move_when_the_game_is_over(self):
        self.engine.send("position fen 6k1/5ppp/8/8/8/8/5PPP/R5K1 w - - 0 1 moves a1a8")
        best, info = self.engine.best()
        self.assertEqual(best, "0000")
        self.assertIn("score mate 0", info[-1])
        self.engine.send("position fen 7k/5Q2/6K1/8/8/8/8/8 b - - 0 1")
        best, info = self.engine.best()
        self.assertEqual(best, "0000")
        self.assertIn("score cp 0", info[-1])


class DuringSearch(UciCase):
    def start_busy_search(self, go="go"):
        self.engine.send("setoption name Level value 3", f"position fen {BUSY}")
        legal, _ = self.engine.perft(1)
        self.engine.send(go)
        return legal

    def test_stop_ends_the_search_with_a_legal_move(self):
        legal = self.start_busy_search()
        self.assertEqual(self.engine.quiet_for(1.0), [])
        started = time.monotonic()
        self.engine.send("stop")
        best = self.engine.read_until("bestmove ", SEARCH_TIMEOUT)[-1].split()[1]
        self.assertIn(best, legal)
        # A stop takes effect at the next root move, long before the search would end.
        self.assertLess(time.monotonic() - started, 60)

    def test_isready_is_answered_while_the_engine_thinks(self):
        self.start_busy_search()
        self.engine.send("isready")
        lines = self.engine.read_until("readyok$", 10)
        self.assertFalse(any(l.startswith("bestmove") for l in lines))
        self.engine.send("stop")
        self.engine.read_until("bestmove ", SEARCH_TIMEOUT)

    def test_infinite_and_ponder_wait_before_their_best_move(self):
        self.engine.send("setoption name Level value 1", "position startpos moves e2e4")
        for go, release in [("go infinite", "stop"), ("go ponder wtime 1000 btime 1000", "ponderhit")]:
            with self.subTest(go=go):
                self.engine.send(go)
                self.assertFalse(any(l.startswith("bestmove") for l in self.engine.quiet_for(2.0)))
                self.engine.send(release)
                self.assertEqual(self.engine.read_until("bestmove ", 30)[-1], "bestmove e7e5")

    def test_quit_during_a_search_ends_the_program(self):
        self.start_busy_search("go infinite")
        self.assertEqual(self.engine.quit(), 0)


class BadInput(UciCase):
    def test_every_bad_line_is_reported_and_changes_nothing(self):
        self.engine.send("position startpos moves e2e4")
        before = self.engine.fen()
        for line in ["xyzzy", "setoption name Level value 9",
                     "setoption name Hash value 16", "position", "position fen", "position banana",
                     "position fen 8/8/8 w", "position fen rnbqkbnr/pppppppp/9/8/8/8/PPPPPPPP/RNBQKBNR w",
                     "position fen rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR x",
                     "position fen rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNX w",
                     "position fen 4k3/8/8/8/8/8/8/4K2K w - - 0 1", "position fen 4k3/8/8/8/8/8/8/8 w",
                     "position fen 4k2R/8/8/8/8/8/8/4K3 w - - 0 1", "position fen P3k3/8/8/8/8/8/8/4K3 w",
                     "position fen " + START + " moves", "go perft 0", "go perft 99",
                     "\x00\x01\x7f\xff garbage", "position " + "a" * 100000]:
            with self.subTest(line=line[:60]):
                self.engine.send(line)
                reply = self.engine.sync()
                self.assertTrue(reply[0].startswith("info string ") or line.endswith(" moves"), reply)
                if line.startswith("position"):
                    self.engine.send("position startpos moves e2e4")
        self.assertEqual(self.engine.fen(), before)

    def test_bad_search_parameters_are_reported_and_the_search_runs(self):
        self.engine.send("setoption name Level value 1", "position startpos moves e2e4")
        for go in ["go depth", "go depth x", "go searchmoves zz", "go wtime -5 sideways"]:
            with self.subTest(go=go):
                best, _ = self.engine.best(go)
                self.assertEqual(best, "e7e5")

    def test_a_bad_move_keeps_the_moves_before_it(self):
        for bad in ["e7e4", "e2", "zzzz", "0000", "e1g1", "a1a1"]:
            self.engine.send(f"position startpos moves e2e4 e7e5 {bad} g1f3")
            self.assertTrue(self.engine.sync()[0].startswith(f"info string move {bad} ignored"))
            self.assertEqual(self.engine.fen().split()[:2], ["rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR", "w"])
        self.assertEqual(self.engine.quit(), 0)

    def test_a_game_longer_than_the_history_is_cut_at_its_length(self):
        shuffle = " ".join(["g1f3 g8f6 f3g1 f6g8"] * 101)
        self.engine.send(f"position startpos moves {shuffle}")
        self.assertIn("longest length", self.engine.sync()[0])
        self.engine.send("go perft 1")
        self.engine.read_until("Nodes searched: 20")


if __name__ == "__main__":
    if len(sys.argv) > 1:
        ENGINE = sys.argv.pop(1)
    if not ENGINE:
        sys.exit("usage: test_uci.py path/to/velok3-uci [unittest options]")
    unittest.main()
