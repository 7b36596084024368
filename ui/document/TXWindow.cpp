#include "ui/document/TXWindow.h"

// Only so that the meta object has a home.
