// Drag transforms for acedDragGen with the prompt "\nNew position:": the
// base point, base angle and base scale are kept between calls; the move,
// rotate and scale callbacks build the transform that shows the dragged
// objects at the cursor. acedXformSS applies a final transform.
#pragma once

#include "drawing/editor_port.h"

// The base point, the base angle in degrees (held in radians) and the base
// scale of the next drag.
void setDragBase(const vorn::Point3d& basePoint, double baseAngleDegrees, double baseScale);
// Translation from the base point to the cursor.
int dragMoveCallback(const vorn::Point3d& cursor, double matrix[4][4]);
// Rotation about the base point by the angle from the base point to the
// cursor less the base angle.
int dragRotateCallback(const vorn::Point3d& cursor, double matrix[4][4]);
// Scaling about the base point by the cursor's distance over the base scale.
int dragScaleCallback(const vorn::Point3d& cursor, double matrix[4][4]);
// Drags the set with "\nNew position:"; the platform's status and the point.
int dragToNewPosition(const vorn::SelectionSet& set, const vorn::DragCallback& callback, vorn::Point3d& pointOut);

// Transforms every entity of the set by a matrix of translation, rotation
// in plan and uniform scaling (acedXformSS). RTNORM, or RTERROR when an
// entity could not be changed.
int acedXformSS(const vorn::SelectionSet& set, const double matrix[4][4]);
