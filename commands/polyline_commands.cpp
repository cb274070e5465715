#include "commands/commands.h"

#include "commands/command_support.h"

void vorn_createPolylineFromObjects() { vorn::reportMissing("vorn_createPolylineFromObjects", "this polyline utility"); }

void vorn_joinPolylines() { vorn::reportMissing("vorn_joinPolylines", "this polyline utility"); }

void vorn_checkClosedPolylines() { vorn::reportMissing("vorn_checkClosedPolylines", "this polyline utility"); }

void vorn_checkOverlaps() { vorn::reportMissing("vorn_checkOverlaps", "this polyline utility"); }

void vorn_checkDuplicates() { vorn::reportMissing("vorn_checkDuplicates", "this polyline utility"); }

void vorn_checkContours() { vorn::reportMissing("vorn_checkContours", "this polyline utility"); }

void vorn_clearWorkingLayer() { vorn::reportMissing("vorn_clearWorkingLayer", "this polyline utility"); }
