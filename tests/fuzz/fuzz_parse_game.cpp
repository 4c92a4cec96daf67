// Fuzz target for the game file reader: any text of up to 4096 bytes, as the load dialog would
// hand it over, must parse without fault into a game that the writer writes back to the same game.
#include <cstdint>
#include <cstring>
#include <string>

#include "records/game_file.h"
#include "fuzz/require.h"

namespace {

constexpr std::size_t MaxFileBytes = 4096;
// Writing a game costs a game-end test per ply that grows with the square of its length; longer
// games are checked by the reader's own invariants only, to keep the runs quick.
constexpr Word MaxPliesWrittenBack = 120;

bool SameMoves(const GameState& a, const GameState& b) {
    if (a.plyCount != b.plyCount) return false;
    for (Word i = 0; i < a.plyCount; ++i) {
        const MoveRecord &x = a.history[i], &y = b.history[i];
        if (x.fromFile != y.fromFile || x.fromRow != y.fromRow || x.toFile != y.toFile ||
            x.toRow != y.toRow || x.placedPiece != y.placedPiece)
            return false;
    }
    return true;
}

// What every parse must leave behind, whatever the text was.
void CheckInvariants(const GameState& g) {
    if (g.previewStatus.Equals(NotBeginPositionText)) return;
    Require(g.previewStatus.Length() == 0);
    Require(g.plyCount >= 0 && g.plyCount <= MaxGamePlies);
    for (const SideRecord& side : g.sides) {
        const std::size_t length = strnlen(side.name, sizeof side.name);
        Require(length >= 1 && length <= 18 && std::strchr(side.name, '"') == nullptr);
        Require(side.kind == (std::strcmp(side.name, ComputerName) == 0 ? SideComputer : SideHuman));
        Require(side.clockSeconds >= 0 && side.clockSeconds <= 99 * 3600 + 99 * 60 + 99);
    }
    Require(g.level >= 1 && g.level <= 3);
}

// A name is written as it stands, so one that holds a marker the reader searches for ("[Black ",
// "TIME", "LEVEL = ") shadows the real one when the file is read again.
bool NameShadowsAMarker(const GameState& g) {
    for (const SideRecord& side : g.sides)
        if (std::strchr(side.name, '[') || std::strstr(side.name, "TIME") ||
            std::strstr(side.name, "LEVEL = "))
            return true;
    return false;
}

// A clock of 100 hours or more has no written form.
bool ClocksHaveAWrittenForm(const GameState& g) {
    return g.sides[White].clockSeconds < 100 * 3600 && g.sides[Black].clockSeconds < 100 * 3600;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > MaxFileBytes) return 0;
    // The load dialog's Text ends at the first 0 byte of the file.
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    previewGame.ParseGame(Text(bytes.c_str()));
    CheckInvariants(previewGame);
    if (previewGame.previewStatus.Length() != 0 || previewGame.plyCount > MaxPliesWrittenBack) return 0;

    Text written = GameFileHeader(previewGame, LocalTime{2007, 3, 9, 14, 35}, "? - ?");
    written.AppendText(GameFileMoves(previewGame, previewGame.plyCount));
    static GameState again;
    again.ParseGame(written);
    Require(SameMoves(previewGame, again));
    if (NameShadowsAMarker(previewGame)) return 0;
    for (Word colour : {White, Black}) {
        Require(std::strcmp(again.sides[colour].name, previewGame.sides[colour].name) == 0);
        Require(again.sides[colour].kind == previewGame.sides[colour].kind);
        if (ClocksHaveAWrittenForm(previewGame))
            Require(again.sides[colour].clockSeconds == previewGame.sides[colour].clockSeconds);
    }
    Require(again.level == previewGame.level);
    return 0;
}
