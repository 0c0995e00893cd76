#pragma once

// The manifest with which FolioHost asks for the user's theme, when it is told to.
#define FOLIO_THEMED_MANIFEST 2
