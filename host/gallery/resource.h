// Names of the gallery's resources.
#pragma once

#define IDD_GALLERY 100
