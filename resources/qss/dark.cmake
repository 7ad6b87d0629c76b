# Colours of the dark theme. Contrasts are on WINDOW unless said otherwise.
set(THEME dark)
set(WINDOW "#404040")       # as in the palette
set(BASE "#303030")         # as in the palette
set(HIGHLIGHT "#406080")    # as in the palette
set(TEXT "#ffffff")
set(MUTED_TEXT "#c4c4c4")   # headings and labels of lesser weight, 6 : 1
set(DISABLED_TEXT "#a0a0a0")   # 4 : 1
set(ACCENT "#8cbef0")       # highlight brought to 5.3 : 1: focus, active tab, check marks
set(SEPARATOR "#575757")    # 12 % white
set(OUTLINE "#8e8e8e")      # outlines of controls, 3.1 : 1
set(DISABLED_OUTLINE "#666666")
set(BUTTON "#4b4b4b")
set(HOVER "#555555")
set(PRESSED "#363636")
set(SCROLL_HANDLE "#808080")   # 3.2 : 1 on BASE
set(SCROLL_HANDLE_HOVER "#a0a0a0")
set(FIELD_HOVER "#383838")
set(TOOLTIP "#1e1e1e")
set(TOOLTIP_TEXT "#ffffff")
set(EDITED_CELL "#8aa6c2")   # ground of cell editors with black text
