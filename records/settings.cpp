// The one instance of the user's choices; it starts at the defaults until the settings file
// has been read.
#include "records/settings.h"

DisplaySettings displaySettings;
