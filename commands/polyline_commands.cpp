#include "commands/commands.h"

#include "drawing/polyline_utility.h"

void vorn_createPolylineFromObjects() { createPolylineFromObjects(); }

void vorn_joinPolylines() { joinPolylines(); }

void vorn_checkClosedPolylines() { checkClosedPolylines(); }

void vorn_checkOverlaps() { checkOverlaps(); }

void vorn_checkDuplicates() { checkDuplicates(); }

void vorn_checkContours() { checkContours(); }

void vorn_clearWorkingLayer() { clearWorkingLayer(); }
