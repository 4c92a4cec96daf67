// The load dialog's decisions: the preview of a selected file, the state of its buttons, and the
// load that hands the previewed state over to the game.
#include "records/load_file.h"

#include <vector>

namespace {

enum TileColumn : Word { DarkColumn = 0, LightColumn = 1, BlackPieceOffset = 5 };

// The file's text as the readers take it: its bytes up to the first 0 byte.
Text TextOfBytes(const char* bytes, std::uint32_t size) {
    std::vector<char> buffer(bytes, bytes + size);
    buffer.push_back(0);
    return Text(buffer.data());
}

} // namespace

const char* LoadListPattern(Word kind) {
    return kind == LoadGames ? "Save\\*.pgn" : "Save\\*.fen";
}

const char* LoadDialogTitle(Word kind) {
    return kind == LoadGames ? "Load game" : "Load position";
}

Text LoadFilePath(const char* rowText) {
    Text path("Save\\");
    path.Append(rowText);
    return path;
}

void PreviewSelectedFile(GameState& preview, Word kind, const SelectedFile& file) {
    if (!file.opened) {
        preview.previewStatus = Text(ErrorOpenFileText);
        return;
    }
    if (!FitsLoadLimit(file.size)) {
        preview.previewStatus = Text(FileTooBigText);
        return;
    }
    const Text text = file.size > 0 ? TextOfBytes(file.bytes, file.size) : Text();
    if (kind == LoadGames)
        preview.ParseGame(text);
    else
        preview.ParsePosition(text);
}

LoadButtons LoadButtonStates(GameState& preview, Word rowCount, Word selectedRow) {
    if (rowCount <= 0) {
        preview.previewStatus = Text(FileNotFoundText);
        return LoadButtons{false, false};
    }
    if (preview.previewStatus.Length() == 0) return LoadButtons{true, true};
    return LoadButtons{false, selectedRow >= 0};
}

void LoadPreviewedGame(GameState& target, const GameState& preview, Word kind, const ListHandle* list) {
    // Everything, the texts as copies of their own.
    target = preview;
    target.loadDialogKind = kind;

    // A game file always begins with White; a position starts a game of two people.
    if (kind == LoadGames) {
        target.sideToMove = target.plyCount % 2;
    } else {
        target.setupStart = 1;
        target.sides[White].kind = SideHuman;
        target.sides[Black].kind = SideHuman;
    }

    // A game in progress with nothing new to save, shown at its last position.
    target.gameActive = 1;
    target.gameDirty = 0;
    target.RebuildMovesList(list);
    HostRepaintWindow(true);
}

SkinTile PreviewTile(const BoardCell& cell, Word file, Word row) {
    Word column = (row + file) % 2 != 0 ? LightColumn : DarkColumn;
    if (cell.piece != PieceNone && cell.colour == Black) column += BlackPieceOffset;
    return SkinTile{column * PreviewTileSize, cell.piece * PreviewTileSize};
}
