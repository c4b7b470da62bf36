// Nothing: what it declares is in Availability.h.
#pragma once
