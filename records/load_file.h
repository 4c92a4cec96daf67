// The rules of the load dialog, free of the window system: which files it lists, what the preview
// shows for a selected file, which buttons may be pressed, and what a load makes of the game.
#pragma once

#include <cstdint>

#include "core/game_state.h"
#include "records/text.h"

// The two kinds of file the dialog loads; the value is the game's loadDialogKind.
enum LoadKind : Word { LoadGames = 0, LoadPositions = 1 };

// The longest file the dialog reads; one byte more and it is refused unread.
enum LoadLimit : Word { MaxLoadFileBytes = 4096 };

// What the preview pane shows instead of a board, and the one message of the dialog.
inline constexpr const char* FileNotSelectedText = "File not selected";
inline constexpr const char* FileNotFoundText = "File not found";
inline constexpr const char* ErrorOpenFileText = "Error open file";
inline constexpr const char* FileTooBigText = "File is too big";
inline constexpr const char* ErrorDeleteFileText = "Error delete file";

// The folder pattern of the list, "Save\*.pgn" or "Save\*.fen".
const char* LoadListPattern(Word kind);

// The dialog's title, "Load game" or "Load position".
const char* LoadDialogTitle(Word kind);

// The path of a listed file: the folder Save and the row's text.
Text LoadFilePath(const char* rowText);

// Whether a file of `size` bytes is read at all.
constexpr bool FitsLoadLimit(std::uint32_t size) {
    return size <= static_cast<std::uint32_t>(MaxLoadFileBytes);
}

// What opening a selected file gave: whether it opened, its size, and, when the size fits the
// limit, its `size` bytes.
struct SelectedFile {
    bool opened;
    std::uint32_t size;
    const char* bytes;
};

// Parses the selected file into `preview` as a game or a position, up to its first 0 byte; a
// file that did not open or is too long only sets the status, leaving the last board as it was.
void PreviewSelectedFile(GameState& preview, Word kind, const SelectedFile& file);

struct LoadButtons {
    bool loadEnabled;
    bool deleteEnabled;
};

// Which buttons may be pressed with `rowCount` files listed and row `selectedRow` selected (-1
// for none). An empty list is what the pane then reports, whatever it said before.
LoadButtons LoadButtonStates(GameState& preview, Word rowCount, Word selectedRow);

// Makes the previewed file the game: the whole state taken over, the side to move of a game
// worked out from its plies, a position made the start of a set-up game, and the moves list
// written anew with its last row selected.
void LoadPreviewedGame(GameState& target, const GameState& preview, Word kind, const ListHandle* list);

// The half-size tiles of the preview, and its one-pixel margin inside the pane.
enum PreviewGeometry : Word { PreviewTileSize = 32, PreviewMargin = 1 };

// Where in the half-size skin the preview finds the tile of a square: a light square one column
// right of a dark one, a black piece five columns further, the piece code giving the row.
struct SkinTile {
    Word x, y;
};
SkinTile PreviewTile(const BoardCell& cell, Word file, Word row);
