// Small helpers of the drawing services: erasing ids, splitting fields,
// joining list rows, entity colour and layer, unit names and result buffer
// text.
#pragma once

#include <string>
#include <vector>

#include "drawing/entity_types.h"
#include "drawing/geom_types.h"

// Erases each entity, then flushes the graphics when asked.
void eraseIds(const std::vector<vorn::ObjectId>& ids, bool flush);
// Trims the line, squeezes runs of blanks to one, splits at `separator`.
// An empty line gives 0 and leaves `fieldsOut` alone. Returns the count.
int splitFields(const std::string& line, std::vector<std::string>& fieldsOut, char separator);
// The texts of the selected rows in list order, joined by the separator.
std::string joinSelectedItems(const std::vector<std::string>& rows, const std::vector<bool>& selected,
                              const std::string& separator);

bool getEntityColorLayer(vorn::ObjectId id, int& colorOut, std::string& layerOut);
// Writes the colour, and the layer when `layer` is not empty.
bool setEntityColorLayer(vorn::ObjectId id, int color, const std::string& layer);

// The unit of a grid value: for system 1 lengths ("ft.", "m", "in."), for
// other systems stresses ("Pa", "MPa", "psi").
const char* unitName(int code, int system);

// One text per buffer of the chain; returns the count.
int resbufToStrings(std::vector<std::string>& stringsOut, const vorn::ResultBuffer& chain);
