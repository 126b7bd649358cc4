// Numbers of commands, controls and private messages that toolbars, menus and windows of the explorer share.
#pragma once

namespace file_explorer {

enum Command : int {
  kCommandDockingMenu = 99,
  kCommandUpOneLevel = 101,
  kCommandRefresh = 102,
  kCommandHomeDirectory = 103,
  kCommandSelectionMasks = 104,
  kCommandOptions = 105,
  kCommandFoldersView = 106,
  kCommandHistoryView = 107,
  kCommandFavoritesView = 108,
  kCommandAddToFavorites = 109,
  kCommandLoadPrevious = 110,
  kCommandLoadNext = 111,
  kCommandDetailMode = 113,
  kCommandListMode = 114,
  kCommandLargeIconMode = 115,
  kCommandSmallIconMode = 116,
  kCommandThumbnailMode = 117,
  kCommandNewFolder = 118,
  kCommandSearch = 119,
  kCommandCut = 120,
  kCommandCopy = 121,
  kCommandPaste = 122,
  kCommandMoveTo = 123,
  kCommandCopyTo = 124,
  kCommandRename = 125,
  kCommandDelete = 126,
  kCommandHelp = 127,
  kCommandLabelSpacer = 128,
  kCommandNewFavoritesFolder = 129,
  kCommandRenameFavorite = 130,
  kCommandDeleteFavorite = 131,
  kCommandAddSelectionToFavorites = 132,
  kCommandClearHistory = 133,
  kCommandHistorySorting = 134,
  kCommandHistoryIcons = 135,
  kCommandGoToMenu = 924,
  kCommandGoToHome = 2000,
  kCommandGoToTextures = 2002,
  kCommandGoToScenes = 2003,
  kCommandGoToImport = 2004,
  kCommandGoToExport = 2005,
  kCommandGoToDocuments = 2006,
  kCommandGoToRenderedImages = 2007,
  kCommandGoToDownloads = 2008,
  kCommandGoToDesktop = 2009,
  kCommandGoToMyDocuments = 2010,
  kCommandModifyDirectoryPaths = 2011,
  kCommandModifyHomeDirectory = 2012,
  kCommandGoToApplicationData = 2013,
  kCommandGoToHostApplicationData = 2014,
  kCommandFirstSorting = 3000,  // 3000 to 3003: history sorting methods 0 to 3
};

// The commands that the explorer window takes for itself.
inline constexpr int kFirstExplorerCommand = kCommandDockingMenu;
inline constexpr int kLastExplorerCommand = kCommandHelp;

enum ControlId : int {
  kCommandToolbarId = 32000,
  kHistoryViewId = 32000,
  kFoldersToolbarId = 32001,
  kHistoryToolbarId = 32002,
  kFavoritesToolbarId = 32003,
  kSelectorToolbarId = 32004,
  kSelectEditId = 32003,
  kFavoritesTreeId = 104,
};

inline constexpr int kDefaultCommandBase = 65535;

// Private messages of the host to the explorer window.
inline constexpr unsigned kMessageFileTypesChanged = 0x414;  // the list of file-format handlers changed
inline constexpr unsigned kMessageReserved = 0x418;          // accepted, no reaction

// Which view the selector area shows.
enum class SelectorView : short { Folders = 0, History = 1, Favorites = 2 };

}  // namespace file_explorer
