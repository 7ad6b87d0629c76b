#pragma once

#include <QString>

/// Names of the properties that have a meaning to the program, as they stand in documents.
namespace PropertyKey {
inline const QString Name = QStringLiteral("name");
inline const QString Id = QStringLiteral("id");

// Geometry, in screen pixels unless said otherwise.
inline const QString X = QStringLiteral("x_coordinate");
inline const QString Y = QStringLiteral("y_coordinate");
inline const QString ShortX = QStringLiteral("x"); ///< accepted for X when a value is set
inline const QString ShortY = QStringLiteral("y");
inline const QString X2 = QStringLiteral("x2_coordinate");
inline const QString Y2 = QStringLiteral("y2_coordinate");
inline const QString Width = QStringLiteral("width");
inline const QString Height = QStringLiteral("height");
inline const QString Radius = QStringLiteral("radius");
inline const QString PointSize = QStringLiteral("point_size"); ///< sixteenths of a pixel
inline const QString Angle = QStringLiteral("angle");          ///< degrees
inline const QString PointList = QStringLiteral("pointlist");  ///< "x,y;x,y;..."
inline const QString Resizeable = QStringLiteral("resizeable");
inline const QString HeightFromFont = QStringLiteral("heightfromfont");
inline const QString Font = QStringLiteral("font");
inline const QString Locked = QStringLiteral("locked");
inline const QString Hidden =
    QStringLiteral("hidden_in_editor"); ///< drawn by the chip all the same

// Screens.
inline const QString Color = QStringLiteral("color");
inline const QString Guides = QStringLiteral("guides"); ///< an attribute only, no property
inline const QString ScreenBitmapTimestamp = QStringLiteral("screen_bm_ts");

// The project.
inline const QString ProjectName = QStringLiteral("project_name");
inline const QString Platform = QStringLiteral("platform");
inline const QString WorkingDirectory = QStringLiteral("working_directory");
inline const QString Fonts = QStringLiteral("fonts"); ///< given to the emulator with each screen
inline const QString NyxVersion = QStringLiteral("NYXVersion");

// Bitmaps and media.
inline const QString BitmapFolder = QStringLiteral("bfolder");
inline const QString BitmapWidth = QStringLiteral("bwidth");
inline const QString BitmapHeight = QStringLiteral("bheight");
inline const QString BaseName = QStringLiteral("basename");
inline const QString FileName = QStringLiteral("filename");
inline const QString Format = QStringLiteral("format");
inline const QString Mono = QStringLiteral("mono");
inline const QString Suffix = QStringLiteral("suffix");
inline const QString Video = QStringLiteral("video");
} // namespace PropertyKey

/// Type names of items that have a meaning to the program; also their element names in documents.
namespace TypeName {
inline const QString Project = QStringLiteral("Kiv_Project_T");
inline const QString Screen = QStringLiteral("Kiv_Screen_T");
inline const QString Group = QStringLiteral("Widget_Group_T");
// Kinds of the library that files of images become.
inline const QString Bitmap = QStringLiteral("Kiv_Bitmap_T");
inline const QString Media = QStringLiteral("Kiv_Media_T");
} // namespace TypeName
