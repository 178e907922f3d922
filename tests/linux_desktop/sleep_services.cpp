// Here so that the toolkit's compiler sees the header.
#include "linux_desktop/sleep_services.h"
