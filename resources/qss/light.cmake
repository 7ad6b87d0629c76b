# Colours of the light theme. Contrasts are on WINDOW unless said otherwise.
set(THEME light)
set(WINDOW "#c0c0c0")       # as in the palette
set(BASE "#d0d0d0")         # as in the palette
set(HIGHLIGHT "#80a0c0")    # as in the palette
set(TEXT "#000000")
set(MUTED_TEXT "#383838")   # headings and labels of lesser weight, 6.4 : 1
set(DISABLED_TEXT "#585858")   # 3.9 : 1
set(ACCENT "#184880")       # highlight brought to 5 : 1: focus, active tab, check marks
set(SEPARATOR "#a9a9a9")    # 12 % black
set(OUTLINE "#666666")      # outlines of controls, 3.2 : 1
set(DISABLED_OUTLINE "#949494")
set(BUTTON "#cacaca")
set(HOVER "#d6d6d6")
set(PRESSED "#b0b0b0")
set(SCROLL_HANDLE "#747474")   # 3 : 1 on BASE
set(SCROLL_HANDLE_HOVER "#585858")
set(FIELD_HOVER "#d8d8d8")
set(TOOLTIP "#f2f2f2")
set(TOOLTIP_TEXT "#000000")
set(EDITED_CELL "#a8c4e0")   # ground of cell editors with black text
