#include "panels/common/TypePanel.h"

void TypePanel::RefreshFromModule() {}
