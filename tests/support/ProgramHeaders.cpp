// Nothing but the headers that the tests of the program share, compiled once for all of them.
#include "support/ProgramFixture.h"
