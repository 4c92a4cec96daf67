#!/usr/bin/env python3
# Plays two UCI engines against each other from a set of openings, each opening twice with the
# colours swapped, and prints the score. The tool keeps the game itself: it checks every move
# for legality and ends the game on mate, stalemate, threefold repetition, the fifty-move rule,
# insufficient material or a ply limit. Python 3 standard library only.
import argparse
import queue
import subprocess
import sys
import threading
import time

START_FEN = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"

# Openings as moves from the start position, so that every engine reads them the same way.
OPENINGS = [
    "e2e4 e7e5 g1f3 b8c6",
    "d2d4 d7d5 c2c4 e7e6",
    "e2e4 c7c5 g1f3 d7d6",
    "d2d4 g8f6 c2c4 g7g6",
    "e2e4 e7e6 d2d4 d7d5",
    "c2c4 e7e5 b1c3 g8f6",
    "e2e4 c7c6 d2d4 d7d5",
    "g1f3 d7d5 g2g3 g8f6",
]

KNIGHT_STEPS = [(1, 2), (2, 1), (2, -1), (1, -2), (-1, -2), (-2, -1), (-2, 1), (-1, 2)]
KING_STEPS = [(1, 0), (1, 1), (0, 1), (-1, 1), (-1, 0), (-1, -1), (0, -1), (1, -1)]
ROOK_RAYS = [(1, 0), (-1, 0), (0, 1), (0, -1)]
BISHOP_RAYS = [(1, 1), (1, -1), (-1, 1), (-1, -1)]


def square_name(sq):
    return "abcdefgh"[sq % 8] + str(sq // 8 + 1)


def square_of(name):
    return "abcdefgh".index(name[0]) + 8 * (int(name[1]) - 1)


def on_board(file, rank):
    return 0 <= file < 8 and 0 <= rank < 8


class Position:
    """A chess position: 64 cells (a1 = 0, letters as in FEN, "." for empty), side to move,
    castling rights, en passant square and the quiet-ply counter."""

    def __init__(self, fen=START_FEN):
        fields = fen.split()
        self.cells = []
        for rank_text in reversed(fields[0].split("/")):
            for c in rank_text:
                self.cells.extend("." * int(c) if c.isdigit() else c)
        self.white = fields[1] == "w"
        self.castling = "" if len(fields) < 3 or fields[2] == "-" else fields[2]
        self.ep = None if len(fields) < 4 or fields[3] == "-" else square_of(fields[3])
        self.quiet = int(fields[4]) if len(fields) > 4 else 0

    def copy(self):
        other = Position.__new__(Position)
        other.cells, other.white, other.castling = self.cells[:], self.white, self.castling
        other.ep, other.quiet = self.ep, self.quiet
        return other

    def own(self, piece, white):
        return piece != "." and piece.isupper() == white

    def attacked(self, sq, by_white):
        """True when a piece of the colour `by_white` attacks `sq`."""
        f, r = sq % 8, sq // 8
        pawn_rank = r - 1 if by_white else r + 1
        for df in (-1, 1):
            if on_board(f + df, pawn_rank) and self.cells[f + df + 8 * pawn_rank] == ("P" if by_white else "p"):
                return True
        for steps, letter in ((KNIGHT_STEPS, "N"), (KING_STEPS, "K")):
            for df, dr in steps:
                if on_board(f + df, r + dr) and self.cells[f + df + 8 * (r + dr)] == (
                        letter if by_white else letter.lower()):
                    return True
        for rays, letters in ((ROOK_RAYS, "RQ"), (BISHOP_RAYS, "BQ")):
            for df, dr in rays:
                x, y = f + df, r + dr
                while on_board(x, y):
                    piece = self.cells[x + 8 * y]
                    if piece != ".":
                        if self.own(piece, by_white) and piece.upper() in letters:
                            return True
                        break
                    x, y = x + df, y + dr
        return False

    def king_square(self, white):
        return self.cells.index("K" if white else "k")

    def in_check(self):
        return self.attacked(self.king_square(self.white), not self.white)

    def pseudo_moves(self):
        """Moves as (from, to, promotion letter or "") that obey the pieces' paths."""
        moves = []
        for sq, piece in enumerate(self.cells):
            if not self.own(piece, self.white):
                continue
            f, r, kind = sq % 8, sq // 8, piece.upper()
            if kind == "P":
                self.pawn_moves(sq, f, r, moves)
                continue
            steps = {"N": KNIGHT_STEPS, "K": KING_STEPS}.get(kind)
            rays = {"R": ROOK_RAYS, "B": BISHOP_RAYS, "Q": ROOK_RAYS + BISHOP_RAYS}.get(kind, [])
            for df, dr in steps or []:
                if on_board(f + df, r + dr) and not self.own(self.cells[f + df + 8 * (r + dr)], self.white):
                    moves.append((sq, f + df + 8 * (r + dr), ""))
            for df, dr in rays:
                x, y = f + df, r + dr
                while on_board(x, y) and not self.own(self.cells[x + 8 * y], self.white):
                    moves.append((sq, x + 8 * y, ""))
                    if self.cells[x + 8 * y] != ".":
                        break
                    x, y = x + df, y + dr
            if kind == "K":
                self.castling_moves(sq, moves)
        return moves

    def pawn_moves(self, sq, f, r, moves):
        step, home, last = (1, 1, 7) if self.white else (-1, 6, 0)

        def add(to):
            for promo in ("q", "r", "b", "n") if to // 8 == last else ("",):
                moves.append((sq, to, promo))

        ahead = sq + 8 * step
        if self.cells[ahead] == ".":
            add(ahead)
            if r == home and self.cells[ahead + 8 * step] == ".":
                moves.append((sq, ahead + 8 * step, ""))
        for df in (-1, 1):
            if on_board(f + df, r + step):
                to = f + df + 8 * (r + step)
                target = self.cells[to]
                if (target != "." and not self.own(target, self.white)) or to == self.ep:
                    add(to)

    def castling_moves(self, sq, moves):
        home = 0 if self.white else 56
        if sq != home + 4 or self.in_check():
            return
        rights = self.castling if self.white else self.castling.swapcase()
        rook = "R" if self.white else "r"
        for right, rook_sq, empty, passed in (("K", 7, (5, 6), (5, 6)), ("Q", 0, (1, 2, 3), (3, 2))):
            if right in rights and self.cells[home + rook_sq] == rook and \
                    all(self.cells[home + e] == "." for e in empty) and \
                    not any(self.attacked(home + p, not self.white) for p in passed):
                moves.append((sq, home + passed[-1], ""))

    def play(self, move):
        """The position after `move`, which must be at least pseudo-legal."""
        sq, to, promo = move
        after = self.copy()
        piece, cells = self.cells[sq], after.cells
        captured = cells[to]
        if piece.upper() == "P" and to == self.ep:
            cells[to - 8 if self.white else to + 8] = "."
        if piece.upper() == "K" and abs(to - sq) == 2:
            rook_from, rook_to = (sq + 3, sq + 1) if to > sq else (sq - 4, sq - 1)
            cells[rook_to], cells[rook_from] = cells[rook_from], "."
        cells[to], cells[sq] = (promo.upper() if self.white else promo) if promo else piece, "."
        after.ep = (sq + to) // 2 if piece.upper() == "P" and abs(to - sq) == 16 else None
        after.quiet = 0 if piece.upper() == "P" or captured != "." else self.quiet + 1
        lost = {4: "KQ", 0: "Q", 7: "K", 60: "kq", 56: "q", 63: "k"}
        after.castling = "".join(c for c in self.castling if c not in lost.get(sq, "") + lost.get(to, ""))
        after.white = not self.white
        return after

    def legal_moves(self):
        legal = []
        for move in self.pseudo_moves():
            after = self.play(move)
            if not after.attacked(after.king_square(self.white), after.white):
                legal.append(move)
        return legal

    def key(self):
        """What makes two positions the same for the repetition rule: placement, side to move,
        castling rights, and the en passant square only when a capture there is legal."""
        ep = self.ep if any(m[1] == self.ep and self.cells[m[0]].upper() == "P"
                            for m in self.legal_moves()) else None
        return "".join(self.cells), self.white, self.castling, ep

    def insufficient_material(self):
        pieces = [(p, sq) for sq, p in enumerate(self.cells) if p not in ".Kk"]
        if any(p.upper() in "PRQ" for p, _ in pieces):
            return False
        if len(pieces) <= 1:
            return True
        # Bishops only, all on squares of one colour.
        return all(p.upper() == "B" for p, _ in pieces) and len({(sq % 8 + sq // 8) % 2 for _, sq in pieces}) == 1


def move_text(move):
    return square_name(move[0]) + square_name(move[1]) + move[2]


class UciEngine:
    """A UCI engine in a child process, its output read on a thread of its own."""

    def __init__(self, command, options):
        self.command = command
        self.proc = subprocess.Popen(command, shell=True, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                     stderr=subprocess.DEVNULL, text=True, bufsize=1)
        self.lines = queue.Queue()
        threading.Thread(target=self._read, daemon=True).start()
        self.send("uci")
        self.name = command
        for line in self.wait_for("uciok", 30):
            if line.startswith("id name "):
                self.name = line[len("id name "):]
        for name, value in options:
            self.send(f"setoption name {name} value {value}")
        self.ready()

    def _read(self):
        for line in self.proc.stdout:
            self.lines.put(line.strip())
        self.lines.put(None)

    def send(self, line):
        try:
            self.proc.stdin.write(line + "\n")
            self.proc.stdin.flush()
        except (BrokenPipeError, OSError):
            pass

    def wait_for(self, word, timeout):
        """The lines up to one that starts with `word`; raises TimeoutError or EOFError."""
        seen, deadline = [], time.monotonic() + timeout
        while True:
            try:
                line = self.lines.get(timeout=max(0.01, deadline - time.monotonic()))
            except queue.Empty:
                raise TimeoutError(f"{self.name}: no '{word}' within {timeout}s")
            if line is None:
                raise EOFError(f"{self.name}: the engine ended")
            seen.append(line)
            if line.split(" ", 1)[0] == word:
                return seen

    def ready(self):
        self.send("isready")
        self.wait_for("readyok", 30)

    def new_game(self):
        self.send("ucinewgame")
        self.ready()

    def best_move(self, position_command, go, timeout):
        self.send(position_command)
        self.send(go)
        return self.wait_for("bestmove", timeout)[-1].split()[1]

    def close(self):
        self.send("quit")
        try:
            self.proc.wait(timeout=5)
        except subprocess.TimeoutExpired:
            self.proc.kill()


def play_game(white, black, opening, args):
    """Plays one game; returns (result, reason, forfeit), result "1-0", "0-1" or "1/2-1/2"."""
    position, played = Position(), []
    for text in opening.split():
        move = next((m for m in position.legal_moves() if move_text(m) == text), None)
        if move is None:
            raise SystemExit(f"opening '{opening}': {text} is not legal")
        position = position.play(move)
        played.append(text)
    seen = {position.key(): 1}
    for engine in (white, black):
        engine.new_game()
    while True:
        legal = position.legal_moves()
        loser_wins = "0-1" if position.white else "1-0"
        if not legal:
            return (loser_wins, "checkmate", False) if position.in_check() else ("1/2-1/2", "stalemate", False)
        if position.insufficient_material():
            return "1/2-1/2", "insufficient material", False
        if max(seen.values()) >= 3:
            return "1/2-1/2", "threefold repetition", False
        if position.quiet >= 100:
            return "1/2-1/2", "fifty-move rule", False
        if len(played) >= args.max_plies:
            return "1/2-1/2", f"adjudicated at {args.max_plies} plies", False
        engine = white if position.white else black
        command = "position startpos moves " + " ".join(played) if played else "position startpos"
        try:
            text = engine.best_move(command, args.go, args.timeout)
        except (TimeoutError, EOFError) as failure:
            return loser_wins, str(failure), True
        move = next((m for m in legal if move_text(m) == text.lower()), None)
        if move is None:
            return loser_wins, f"{engine.name} played the illegal move {text}", True
        position = position.play(move)
        played.append(move_text(move))
        key = position.key()
        seen[key] = seen.get(key, 0) + 1


def parse_options(pairs):
    options = []
    for pair in pairs:
        name, _, value = pair.partition("=")
        options.append((name, value))
    return options


def main():
    parser = argparse.ArgumentParser(description="Plays two UCI engines against each other.")
    parser.add_argument("engine1", help="command that starts the first engine")
    parser.add_argument("engine2", help="command that starts the second engine")
    parser.add_argument("--games", type=int, default=len(OPENINGS) * 2,
                        help="number of games; openings are used in turn, each twice with colours swapped")
    parser.add_argument("--max-plies", type=int, default=300, help="a game this long is adjudicated drawn")
    parser.add_argument("--go", default="go", help="the go command sent for every move (default: go)")
    parser.add_argument("--timeout", type=float, default=600, help="seconds an engine may take for one move")
    parser.add_argument("--option", action="append", default=[], metavar="NAME=VALUE",
                        help="setoption for both engines")
    parser.add_argument("--option1", action="append", default=[], metavar="NAME=VALUE")
    parser.add_argument("--option2", action="append", default=[], metavar="NAME=VALUE")
    args = parser.parse_args()

    first = UciEngine(args.engine1, parse_options(args.option + args.option1))
    second = UciEngine(args.engine2, parse_options(args.option + args.option2))
    if first.name == second.name:
        first.name, second.name = first.name + " (1)", second.name + " (2)"
    points, tally, forfeits = [0.0, 0.0], [0, 0, 0], 0
    try:
        for game in range(args.games):
            opening = OPENINGS[(game // 2) % len(OPENINGS)]
            first_is_white = game % 2 == 0
            white, black = (first, second) if first_is_white else (second, first)
            result, reason, forfeit = play_game(white, black, opening, args)
            forfeits += forfeit
            white_points = {"1-0": 1.0, "0-1": 0.0}.get(result, 0.5)
            first_points = white_points if first_is_white else 1.0 - white_points
            points[0] += first_points
            points[1] += 1.0 - first_points
            tally[{1.0: 0, 0.0: 1}.get(first_points, 2)] += 1
            print(f"Game {game + 1}: {white.name} - {black.name} {result} ({reason}) after {opening}", flush=True)
    finally:
        first.close()
        second.close()
    print(f"Score of {first.name} vs {second.name}: {tally[0]} - {tally[1]} - {tally[2]}"
          f"  [{points[0]:g} - {points[1]:g}]")
    # Games lost by an illegal move, a crash or a timeout make the run fail.
    return 1 if forfeits else 0


if __name__ == "__main__":
    sys.exit(main())
