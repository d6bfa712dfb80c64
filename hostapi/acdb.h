#pragma once

/// Constants of the drawing database. Those without values are of no use to this module.
struct AcDb {
  /// What an object is opened for. Any number of readers, or one writer.
  enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };

  enum AcDbDwgVersion : int;
  enum CollisionType : int;
  enum DragStat : int;
  enum DuplicateRecordCloning : int;
  enum GripStat : int;
  enum Intersect : int;
  enum LineWeight : int;
  enum MaintenanceReleaseVersion : int;
  enum OsnapMode : int;
  enum Planarity : int;
  enum PlotStyleNameType : int;
  enum SaveType : int;
  enum SubentType : int;
  enum Visibility : int;
  enum XrefNotificationStatus : int;
  enum XrefStatus : int;
};
