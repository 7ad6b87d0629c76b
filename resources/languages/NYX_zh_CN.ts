<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CActionCentre</name>
    <message>
        <source>Search &amp;Actions...</source>
        <translation>搜索操作(&amp;A)...</translation>
    </message>
    <message>
        <source>Find any action, page or item by its name</source>
        <translation>按名称查找任何操作、页面或对象</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts...</source>
        <translation>键盘快捷键(&amp;K)...</translation>
    </message>
    <message>
        <source>See and change the keys of all actions</source>
        <translation>查看和更改所有操作的按键</translation>
    </message>
    <message>
        <source>No project is open</source>
        <translation>没有打开的项目</translation>
    </message>
    <message>
        <source>There is nothing to undo</source>
        <translation>没有可撤销的操作</translation>
    </message>
    <message>
        <source>This installation names no place to look for updates</source>
        <translation>此安装未指定更新的查找位置</translation>
    </message>
    <message>
        <source>There is nothing to redo</source>
        <translation>没有可重做的操作</translation>
    </message>
    <message>
        <source>Nothing has been saved over what you saved last</source>
        <translation>上次保存的内容未被覆盖</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>it is used on the canvas</source>
        <translation>画布上要使用它</translation>
    </message>
    <message>
        <source>it opens a menu</source>
        <translation>它用于打开菜单</translation>
    </message>
</context>
<context>
    <name>CActionFinder</name>
    <message>
        <source>Search for actions, pages and items</source>
        <translation>搜索操作、页面和对象</translation>
    </message>
    <message>
        <source>No match</source>
        <translation>没有匹配项</translation>
    </message>
</context>
<context>
    <name>CArrangeActions</name>
    <message>
        <source>Align &amp;Left</source>
        <translation>左对齐(&amp;L)</translation>
    </message>
    <message>
        <source>Align the left edges</source>
        <translation>对齐左边缘</translation>
    </message>
    <message>
        <source>Align &amp;Centre</source>
        <translation>水平居中对齐(&amp;C)</translation>
    </message>
    <message>
        <source>Align the middles, from left to right</source>
        <translation>在水平方向对齐中心</translation>
    </message>
    <message>
        <source>Align &amp;Right</source>
        <translation>右对齐(&amp;R)</translation>
    </message>
    <message>
        <source>Align the right edges</source>
        <translation>对齐右边缘</translation>
    </message>
    <message>
        <source>Align &amp;Top</source>
        <translation>顶端对齐(&amp;T)</translation>
    </message>
    <message>
        <source>Align the top edges</source>
        <translation>对齐上边缘</translation>
    </message>
    <message>
        <source>Align &amp;Middle</source>
        <translation>垂直居中对齐(&amp;M)</translation>
    </message>
    <message>
        <source>Align the middles, from top to bottom</source>
        <translation>在垂直方向对齐中心</translation>
    </message>
    <message>
        <source>Align &amp;Bottom</source>
        <translation>底端对齐(&amp;B)</translation>
    </message>
    <message>
        <source>Align the bottom edges</source>
        <translation>对齐下边缘</translation>
    </message>
    <message>
        <source>Distribute &amp;Left Edges</source>
        <translation>分布左边缘(&amp;L)</translation>
    </message>
    <message>
        <source>Make the distances between left edges equal</source>
        <translation>使左边缘的间距相等</translation>
    </message>
    <message>
        <source>Distribute &amp;Centres</source>
        <translation>水平分布中心(&amp;C)</translation>
    </message>
    <message>
        <source>Make the distances between middles equal, from left to right</source>
        <translation>使中心的水平间距相等</translation>
    </message>
    <message>
        <source>Distribute &amp;Right Edges</source>
        <translation>分布右边缘(&amp;R)</translation>
    </message>
    <message>
        <source>Make the distances between right edges equal</source>
        <translation>使右边缘的间距相等</translation>
    </message>
    <message>
        <source>Distribute &amp;Horizontally</source>
        <translation>水平分布(&amp;H)</translation>
    </message>
    <message>
        <source>Make the gaps equal, from left to right</source>
        <translation>使从左到右的空隙相等</translation>
    </message>
    <message>
        <source>Distribute &amp;Top Edges</source>
        <translation>分布上边缘(&amp;T)</translation>
    </message>
    <message>
        <source>Make the distances between top edges equal</source>
        <translation>使上边缘的间距相等</translation>
    </message>
    <message>
        <source>Distribute &amp;Middles</source>
        <translation>垂直分布中心(&amp;M)</translation>
    </message>
    <message>
        <source>Make the distances between middles equal, from top to bottom</source>
        <translation>使中心的垂直间距相等</translation>
    </message>
    <message>
        <source>Distribute &amp;Bottom Edges</source>
        <translation>分布下边缘(&amp;B)</translation>
    </message>
    <message>
        <source>Make the distances between bottom edges equal</source>
        <translation>使下边缘的间距相等</translation>
    </message>
    <message>
        <source>Distribute &amp;Vertically</source>
        <translation>垂直分布(&amp;V)</translation>
    </message>
    <message>
        <source>Make the gaps equal, from top to bottom</source>
        <translation>使从上到下的空隙相等</translation>
    </message>
    <message>
        <source>Horizontal &amp;Gap...</source>
        <translation>水平空隙(&amp;G)...</translation>
    </message>
    <message>
        <source>Line up from left to right with gaps of a given size</source>
        <translation>按给定空隙从左到右排列</translation>
    </message>
    <message>
        <source>Vertical Ga&amp;p...</source>
        <translation>垂直空隙(&amp;P)...</translation>
    </message>
    <message>
        <source>Line up from top to bottom with gaps of a given size</source>
        <translation>按给定空隙从上到下排列</translation>
    </message>
    <message>
        <source>Same &amp;Width</source>
        <translation>相同宽度(&amp;W)</translation>
    </message>
    <message>
        <source>As wide as the item that was selected first</source>
        <translation>与最先选中的对象同宽</translation>
    </message>
    <message>
        <source>Same &amp;Height</source>
        <translation>相同高度(&amp;H)</translation>
    </message>
    <message>
        <source>As high as the item that was selected first</source>
        <translation>与最先选中的对象同高</translation>
    </message>
    <message>
        <source>Same &amp;Size</source>
        <translation>相同大小(&amp;S)</translation>
    </message>
    <message>
        <source>As large as the item that was selected first</source>
        <translation>与最先选中的对象同样大小</translation>
    </message>
    <message>
        <source>Centre &amp;Horizontally</source>
        <translation>水平居中(&amp;H)</translation>
    </message>
    <message>
        <source>To the middle of the page, from left to right</source>
        <translation>移到页面的水平中心</translation>
    </message>
    <message>
        <source>Centre &amp;Vertically</source>
        <translation>垂直居中(&amp;V)</translation>
    </message>
    <message>
        <source>To the middle of the page, from top to bottom</source>
        <translation>移到页面的垂直中心</translation>
    </message>
    <message>
        <source>Centre in &amp;Page</source>
        <translation>在页面中居中(&amp;P)</translation>
    </message>
    <message>
        <source>To the middle of the page</source>
        <translation>移到页面中心</translation>
    </message>
    <message>
        <source>Align to &amp;Page</source>
        <translation>对齐到页面(&amp;P)</translation>
    </message>
    <message>
        <source>Align several items to the page too, not to each other</source>
        <translation>多个对象也对齐到页面，而不是互相对齐</translation>
    </message>
    <message>
        <source>&amp;Distribute</source>
        <translation>分布(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Same Size</source>
        <translation>相同大小(&amp;S)</translation>
    </message>
    <message>
        <source>Ce&amp;ntre in Page</source>
        <translation>在页面中居中(&amp;N)</translation>
    </message>
    <message>
        <source>Arrange</source>
        <translation>排列</translation>
    </message>
    <message>
        <source>Gap between neighbours, in pixels:</source>
        <translation>相邻对象的空隙（像素）：</translation>
    </message>
    <message>
        <source>Align to &amp;Key Item</source>
        <translation>对齐到基准对象(&amp;K)</translation>
    </message>
    <message>
        <source>Align to one of the selected items, which stays; click it to choose it</source>
        <translation>对齐到所选对象之一，该对象保持不动；单击即可选定</translation>
    </message>
    <message>
        <source>Select two or more items first</source>
        <translation>请先选择两个或更多对象</translation>
    </message>
</context>
<context>
    <name>CBatchColour</name>
    <message>
        <source>Choose a colour</source>
        <translation>选择颜色</translation>
    </message>
    <message>
        <source>A colour is typed as #rrggbb, #aarrggbb or its name</source>
        <translation>颜色可输入为 #rrggbb、#aarrggbb 或其名称</translation>
    </message>
</context>
<context>
    <name>CBatchEditView</name>
    <message>
        <source>Only some of them have (%1)</source>
        <translation>仅部分对象具有 (%1)</translation>
    </message>
    <message>
        <source>%1, of %2 items</source>
        <translation>%1，%2 个对象具有</translation>
    </message>
    <message>
        <source>Select some items to edit them together.</source>
        <translation>选择一些对象以便一起编辑。</translation>
    </message>
    <message>
        <source>1 item</source>
        <translation>1 个对象</translation>
    </message>
    <message>
        <source>%1 items</source>
        <translation>%1 个对象</translation>
    </message>
    <message>
        <source>What is selected is locked.</source>
        <translation>所选内容已锁定。</translation>
    </message>
    <message>
        <source>%1 locked, left out</source>
        <translation>%1 个已锁定，不包括在内</translation>
    </message>
</context>
<context>
    <name>CBatchEditor</name>
    <message>
        <source>%1 stays as it is, and so do the others: its image could not be taken.</source>
        <translation>%1 及其他对象保持不变：无法采用其图像。</translation>
    </message>
</context>
<context>
    <name>CBatchField</name>
    <message>
        <source>mixed</source>
        <translation>不一致</translation>
    </message>
</context>
<context>
    <name>CBatchImage</name>
    <message>
        <source>Choose a file</source>
        <translation>选择文件</translation>
    </message>
</context>
<context>
    <name>CBatchItems</name>
    <message>
        <source>Change %1 of %2 Items</source>
        <translation>更改 %2 个对象的 %1</translation>
    </message>
</context>
<context>
    <name>CBatchTime</name>
    <message>
        <source>A time is typed as 18:30:00</source>
        <translation>时间的输入格式为 18:30:00</translation>
    </message>
</context>
<context>
    <name>CColourChooser</name>
    <message>
        <source>Change Colour</source>
        <translation>更改颜色</translation>
    </message>
</context>
<context>
    <name>CColourDialog</name>
    <message>
        <source>Choose a colour</source>
        <translation>选择颜色</translation>
    </message>
    <message>
        <source>#rrggbb, #aarrggbb or the name of a colour</source>
        <translation>#rrggbb、#aarrggbb 或颜色名称</translation>
    </message>
    <message>
        <source>%1, uses: %2</source>
        <translation>%1，使用次数：%2</translation>
    </message>
    <message>
        <source>In this project</source>
        <translation>此项目中</translation>
    </message>
    <message>
        <source>Chosen last</source>
        <translation>最近选择</translation>
    </message>
    <message>
        <source>Before and now</source>
        <translation>之前与现在</translation>
    </message>
</context>
<context>
    <name>CConfigurationDialog</name>
    <message>
        <source>Project configuration</source>
        <translation>项目配置</translation>
    </message>
    <message>
        <source>Choose a folder</source>
        <translation>选择文件夹</translation>
    </message>
    <message>
        <source>Project &amp;Name</source>
        <translation>项目名称(&amp;N)</translation>
    </message>
    <message>
        <source>Hardware &amp;Platform</source>
        <translation>硬件平台(&amp;P)</translation>
    </message>
    <message>
        <source>Screen &amp;Resolution</source>
        <translation>屏幕分辨率(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Working Directory</source>
        <translation>工作目录(&amp;W)</translation>
    </message>
    <message>
        <source>File name exists already!</source>
        <translation>文件名已存在！</translation>
    </message>
    <message>
        <source>Change to another project name!</source>
        <translation>请更换项目名称！</translation>
    </message>
</context>
<context>
    <name>CDialogQuestions</name>
    <message>
        <source>Do you want to save the current project before closing it?</source>
        <translation>关闭之前是否保存当前项目？</translation>
    </message>
    <message>
        <source>Project already open</source>
        <translation>项目已打开</translation>
    </message>
    <message>
        <source>The project is already open in another instance of this application. Are you sure you want to continue?</source>
        <translation>该项目已在本程序的另一个实例中打开。确定要继续吗？</translation>
    </message>
    <message>
        <source>Project changed on disk</source>
        <translation>磁盘上的项目已更改</translation>
    </message>
    <message>
        <source>%1 was changed by another program since it was opened here. Do you want to replace those changes by yours?</source>
        <translation>%1 在此处打开之后被其他程序修改过。是否用您的更改替换那些更改？</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>另存为...</translation>
    </message>
    <message>
        <source>Project taken over</source>
        <translation>项目已被接管</translation>
    </message>
    <message>
        <source>%1 was taken over by another instance of this application and cannot be saved here. You can save your version under another name.</source>
        <translation>%1 已被本程序的另一个实例接管，无法在此保存。您可以用其他名称保存您的版本。</translation>
    </message>
    <message>
        <source>Project Files (*.xml *.nyx)</source>
        <translation>项目文件 (*.xml *.nyx)</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Automatically saved changes</source>
        <translation>自动保存的更改</translation>
    </message>
    <message>
        <source>The program ended while %1 was open. The file holds changes that were saved automatically after you had saved it last. Do you want to go back to the version that you saved? With No, the project is opened as the file has it.</source>
        <translation>程序在 %1 打开期间结束。文件中含有您上次保存之后自动保存的更改。是否返回您自己保存的版本？选择“否”将按文件现有内容打开项目。</translation>
    </message>
    <message>
        <source>Revert</source>
        <translation>还原</translation>
    </message>
    <message>
        <source>Do you want to give up all changes since you last saved %1? This cannot be undone: the list of steps to undo begins anew.</source>
        <translation>是否放弃自您上次保存 %1 以来的所有更改？此操作无法撤销：撤销列表将重新开始。</translation>
    </message>
    <message>
        <source>Unsaved work</source>
        <translation>未保存的工作</translation>
    </message>
    <message>
        <source>Do you want to delete the recovery copy of &quot;%1&quot;? What it holds was not saved.</source>
        <translation>是否删除“%1”的恢复副本？该内容从未保存过。</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>%1 already exists. Do you want to replace it?</source>
        <translation>%1 已存在。是否替换？</translation>
    </message>
</context>
<context>
    <name>CErrorBox</name>
    <message>
        <source>Save As...</source>
        <translation>另存为...</translation>
    </message>
</context>
<context>
    <name>CExportController</name>
    <message>
        <source>Export project to DL</source>
        <translation>将项目导出为 DL</translation>
    </message>
    <message>
        <source>Display Lists (*.dl)</source>
        <translation>显示列表 (*.dl)</translation>
    </message>
    <message>
        <source>Export project to binary</source>
        <translation>将项目导出为二进制</translation>
    </message>
    <message>
        <source>Display Lists Binary(*.bin)</source>
        <translation>二进制显示列表(*.bin)</translation>
    </message>
    <message>
        <source>Export screen to DL</source>
        <translation>将页面导出为 DL</translation>
    </message>
    <message>
        <source>Export Page to binary</source>
        <translation>将页面导出为二进制</translation>
    </message>
    <message>
        <source>Exporting the pages</source>
        <translation>正在导出页面</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Exporting page %1 of %2</source>
        <translation>正在导出第 %1 页，共 %2 页</translation>
    </message>
    <message>
        <source>Exported to %1</source>
        <translation>已导出到 %1</translation>
    </message>
    <message>
        <source>An error occurred during the export process</source>
        <translation>导出过程中发生错误</translation>
    </message>
    <message>
        <source>The export was cancelled.</source>
        <translation>导出已取消。</translation>
    </message>
    <message>
        <source>Export package into a folder</source>
        <translation>将程序包导出到文件夹</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>Not all pages could be drawn.</source>
        <translation>并非所有页面都能绘制。</translation>
    </message>
    <message>
        <source>Exported to %1; see the messages above it: not all is as designed</source>
        <translation>已导出到 %1；请查看上方的消息：部分内容与设计不符</translation>
    </message>
</context>
<context>
    <name>CFileCopies</name>
    <message>
        <source>%1 could not be copied: %2</source>
        <translation>无法复制 %1：%2</translation>
    </message>
    <message>
        <source>%1 holds something else already</source>
        <translation>%1 已有其他内容</translation>
    </message>
</context>
<context>
    <name>CExplorerPanel</name>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Filter pages and items</source>
        <translation>筛选页面和对象</translation>
    </message>
</context>
<context>
    <name>CFileWriter</name>
    <message>
        <source>this is not the name of a file</source>
        <translation>这不是文件名</translation>
    </message>
    <message>
        <source>this is not a regular file</source>
        <translation>这不是普通文件</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
</context>
<context>
    <name>CFindActions</name>
    <message>
        <source>&amp;Find...</source>
        <translation>查找(&amp;F)...</translation>
    </message>
    <message>
        <source>Find items by name, text, kind, value, colour, font or image</source>
        <translation>按名称、文本、种类、值、颜色、字体或图像查找对象</translation>
    </message>
    <message>
        <source>R&amp;eplace...</source>
        <translation>替换(&amp;E)...</translation>
    </message>
    <message>
        <source>Replace what is found in items of all pages</source>
        <translation>替换在所有页面的对象中找到的内容</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>查找下一个(&amp;N)</translation>
    </message>
    <message>
        <source>Go to the next item that was found</source>
        <translation>转到找到的下一个对象</translation>
    </message>
    <message>
        <source>Find Pre&amp;vious</source>
        <translation>查找上一个(&amp;V)</translation>
    </message>
    <message>
        <source>Go to the previous item that was found</source>
        <translation>转到找到的上一个对象</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>查找</translation>
    </message>
</context>
<context>
    <name>CFindPanel</name>
    <message>
        <source>Find in all pages</source>
        <translation>在所有页面中查找</translation>
    </message>
    <message>
        <source>Replace by</source>
        <translation>替换为</translation>
    </message>
    <message>
        <source>Replace what is found</source>
        <translation>替换找到的内容</translation>
    </message>
    <message>
        <source>Capital and small letters differ</source>
        <translation>区分大小写</translation>
    </message>
    <message>
        <source>Regular expression; in the replacement, \1 stands for the first group</source>
        <translation>正则表达式；替换内容中的 \1 代表第一个分组</translation>
    </message>
    <message>
        <source>Where to look</source>
        <translation>查找范围</translation>
    </message>
    <message>
        <source>Everything</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文本</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>Property</source>
        <translation>属性</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>字体</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>图像</translation>
    </message>
    <message>
        <source>width, width=120, width&gt;=120 or text:room</source>
        <translation>width、width=120、width&gt;=120 或 text:room</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>找到的内容</translation>
    </message>
    <message>
        <source>Replace (%1)</source>
        <translation>替换 (%1)</translation>
    </message>
    <message>
        <source>%1 of %2 ticked</source>
        <translation>已勾选 %1 / %2</translation>
    </message>
    <message>
        <source>The values of a property are found with &quot;%1&quot;.</source>
        <translation>属性的值请用“%1”查找。</translation>
    </message>
    <message>
        <source>Nothing found in %1 items</source>
        <translation>在 %1 个对象中未找到</translation>
    </message>
    <message>
        <source>%1 of %2 items</source>
        <translation>%1 / %2 个对象</translation>
    </message>
    <message>
        <source>Of long texts only the beginning was looked at.</source>
        <translation>较长的文本只查找了开头部分。</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>没有项目</translation>
    </message>
</context>
<context>
    <name>CFolder</name>
    <message>
        <source>%1 lies outside of %2</source>
        <translation>%1 位于 %2 之外</translation>
    </message>
    <message>
        <source>The folder %1 could not be made: %2</source>
        <translation>无法创建文件夹 %1：%2</translation>
    </message>
    <message>
        <source>%1 is a link, and nothing is written through links</source>
        <translation>%1 是链接，不会通过链接写入任何内容</translation>
    </message>
</context>
<context>
    <name>CFontForm</name>
    <message>
        <source>Take another file for this font</source>
        <translation>为此字体改用另一个文件</translation>
    </message>
    <message>
        <source> px</source>
        <translation> 像素</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>名称(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Handle</source>
        <translation>编号(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>大小(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Variation</source>
        <translation>变化(&amp;V)</translation>
    </message>
    <message>
        <source>S&amp;moothing</source>
        <translation>平滑(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Fallback</source>
        <translation>后备(&amp;F)</translation>
    </message>
    <message>
        <source>E&amp;xtra characters</source>
        <translation>额外字符(&amp;X)</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>许可证</translation>
    </message>
    <message>
        <source>Embedding</source>
        <translation>嵌入</translation>
    </message>
    <message>
        <source>8 bit, 256 levels</source>
        <translation>8 位，256 级</translation>
    </message>
    <message>
        <source>4 bit, 16 levels</source>
        <translation>4 位，16 级</translation>
    </message>
    <message>
        <source>2 bit, 4 levels</source>
        <translation>2 位，4 级</translation>
    </message>
    <message>
        <source>1 bit, none</source>
        <translation>1 位，无</translation>
    </message>
    <message>
        <source>The number by which the &quot;font&quot; of a widget means this font</source>
        <translation>控件的“font”用这个编号表示该字体</translation>
    </message>
    <message>
        <source>Fonts that are asked, from top to bottom, for characters that this font lacks; drag them into their order</source>
        <translation>此字体缺少的字符按从上到下的顺序在这些字体中查找；拖动可改变顺序</translation>
    </message>
    <message>
        <source>Characters for what the firmware writes later, parted by blanks; &quot;0-9&quot; means all from 0 to 9</source>
        <translation>固件以后要写的字符，用空格分隔；“0-9”表示从 0 到 9 的全部字符</translation>
    </message>
    <message>
        <source>Allowed</source>
        <translation>允许</translation>
    </message>
    <message>
        <source>Allowed in documents that are edited; ask its maker for devices</source>
        <translation>允许用于可编辑的文档；用于设备请询问制造商</translation>
    </message>
    <message>
        <source>Allowed in documents for reading only; ask its maker for devices</source>
        <translation>仅允许用于只读文档；用于设备请询问制造商</translation>
    </message>
    <message>
        <source>Forbidden without its maker&apos;s consent</source>
        <translation>未经制造商同意禁止使用</translation>
    </message>
    <message>
        <source>parts of it may not be taken</source>
        <translation>不得只取其中一部分</translation>
    </message>
    <message>
        <source>only as bitmaps</source>
        <translation>仅限位图</translation>
    </message>
</context>
<context>
    <name>CFontsDialog</name>
    <message>
        <source>Items that still use handle %1: %2</source>
        <translation>仍使用编号 %1 的对象：%2</translation>
    </message>
    <message>
        <source>Font File</source>
        <translation>字体文件</translation>
    </message>
    <message>
        <source>Add a TTF, OTF or WOFF2 file; texts can then be drawn in it.</source>
        <translation>添加 TTF、OTF 或 WOFF2 文件后，即可用它绘制文字。</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>添加(&amp;A)...</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>删除(&amp;R)</translation>
    </message>
    <message>
        <source>Fonts</source>
        <translation>字体</translation>
    </message>
    <message>
        <source>&amp;Preview</source>
        <translation>预览(&amp;P)</translation>
    </message>
    <message>
        <source>Temperature 21 °C</source>
        <translation>温度 21 °C</translation>
    </message>
    <message>
        <source>Add Fonts</source>
        <translation>添加字体</translation>
    </message>
    <message>
        <source>Fonts (*.ttf *.otf *.ttc *.woff2)</source>
        <translation>字体 (*.ttf *.otf *.ttc *.woff2)</translation>
    </message>
    <message>
        <source>All %1 handles are taken.</source>
        <translation>全部 %1 个编号均已占用。</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1 bytes of graphics memory for this preview; items that use the font: %2</source>
        <translation>此预览占用 %1 字节图形内存；使用该字体的对象：%2</translation>
    </message>
    <message>
        <source>Handle %1 belongs to two fonts.</source>
        <translation>编号 %1 属于两种字体。</translation>
    </message>
    <message>
        <source>A font needs a name.</source>
        <translation>字体需要名称。</translation>
    </message>
    <message>
        <source>Change Fonts</source>
        <translation>更改字体</translation>
    </message>
</context>
<context>
    <name>CHistoryDock</name>
    <message>
        <source>History</source>
        <translation>历史记录</translation>
    </message>
</context>
<context>
    <name>CHistoryModel</name>
    <message>
        <source>Beginning</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>%1 (saved)</source>
        <translation>%1（已保存）</translation>
    </message>
</context>
<context>
    <name>CHistoryView</name>
    <message>
        <source>No project</source>
        <translation>没有项目</translation>
    </message>
</context>
<context>
    <name>CItemFacets</name>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>组</translation>
    </message>
</context>
<context>
    <name>CItemReplacement</name>
    <message>
        <source>Locked</source>
        <translation>已锁定</translation>
    </message>
    <message>
        <source>A kind cannot be replaced</source>
        <translation>种类不能替换</translation>
    </message>
    <message>
        <source>Each item has a number of its own</source>
        <translation>每个对象都有自己的编号</translation>
    </message>
    <message>
        <source>Needs the image converted: change it in the property panel</source>
        <translation>需要转换图像：请在属性面板中更改</translation>
    </message>
    <message>
        <source>Points are moved on the canvas</source>
        <translation>点在画布上移动</translation>
    </message>
    <message>
        <source>Cannot be edited</source>
        <translation>不能编辑</translation>
    </message>
    <message>
        <source>A name is missing</source>
        <translation>缺少名称</translation>
    </message>
    <message>
        <source>Another page is called so</source>
        <translation>另一页面已用此名称</translation>
    </message>
    <message>
        <source>The text is too long</source>
        <translation>文本太长</translation>
    </message>
    <message>
        <source>No font has this number</source>
        <translation>没有此编号的字体</translation>
    </message>
    <message>
        <source>Is so already</source>
        <translation>已经如此</translation>
    </message>
    <message>
        <source>No %1 shows an image of this name</source>
        <translation>没有 %1 显示此名称的图像</translation>
    </message>
</context>
<context>
    <name>CItemSearch</name>
    <message>
        <source>The search was stopped because it took too long.</source>
        <translation>查找耗时过长，已停止。</translation>
    </message>
    <message>
        <source>Only the first %1 are shown.</source>
        <translation>只显示前 %1 个。</translation>
    </message>
</context>
<context>
    <name>CNumberEntry</name>
    <message>
        <source>A number, or an expression: +4, -=4, *2 and 50% go on from the number that is there; =width/2 and (x+8)*2 name other numbers of the item.
Arrow keys make steps, with Shift or Ctrl ten at a time.</source>
        <translation>一个数或一个表达式：+4、-=4、*2 和 50% 以现有的数为基础；=width/2 和 (x+8)*2 引用该对象的其他数值。
方向键逐步增减，按住 Shift 或 Ctrl 时每次十步。</translation>
    </message>
</context>
<context>
    <name>CPropertyLayout</name>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>End</source>
        <translation>终点</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>W</source>
        <translation>宽</translation>
    </message>
    <message>
        <source>H</source>
        <translation>高</translation>
    </message>
</context>
<context>
    <name>CShortcutDialog</name>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>键盘快捷键</translation>
    </message>
    <message>
        <source>Search by name, menu or keys</source>
        <translation>按名称、菜单或按键搜索</translation>
    </message>
    <message>
        <source>Press the new keys; Esc leaves it as it is</source>
        <translation>按下新的按键；Esc 保持不变</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>菜单</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>按键</translation>
    </message>
    <message>
        <source>&amp;Change</source>
        <translation>更改(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>添加(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>移除(&amp;R)</translation>
    </message>
    <message>
        <source>R&amp;eset</source>
        <translation>重置(&amp;E)</translation>
    </message>
    <message>
        <source>Reset A&amp;ll</source>
        <translation>全部重置(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>导入(&amp;I)...</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>导出(&amp;X)...</translation>
    </message>
    <message>
        <source>Before it was changed: %1</source>
        <translation>更改之前：%1</translation>
    </message>
    <message>
        <source>The keys for &quot;%1&quot; are the ones that you press now.</source>
        <translation>“%1”的按键将是您现在按下的按键。</translation>
    </message>
    <message>
        <source>%1 cannot be changed: %2.</source>
        <translation>%1 不能更改：%2。</translation>
    </message>
    <message>
        <source>%1 are the keys for &quot;%2&quot;. Press them once more to take them from there, or press others.</source>
        <translation>%1 是“%2”的按键。再按一次即可从那里取走，或者按其他按键。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has the keys %2 now.</source>
        <translation>“%1”的按键现在是 %2。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has the keys %2 now, and &quot;%3&quot; has them no longer.</source>
        <translation>“%1”的按键现在是 %2，“%3”不再使用它们。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no keys now.</source>
        <translation>“%1”现在没有按键。</translation>
    </message>
    <message>
        <source>The keys were taken from &quot;%1&quot;.</source>
        <translation>这些按键已从“%1”取走。</translation>
    </message>
    <message>
        <source>All actions have the keys that they came with.</source>
        <translation>所有操作都恢复了原有的按键。</translation>
    </message>
    <message>
        <source>Export Keyboard Shortcuts</source>
        <translation>导出键盘快捷键</translation>
    </message>
    <message>
        <source>Import Keyboard Shortcuts</source>
        <translation>导入键盘快捷键</translation>
    </message>
    <message>
        <source>Keyboard shortcuts (*.keys)</source>
        <translation>键盘快捷键 (*.keys)</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>已保存 %1</translation>
    </message>
    <message>
        <source>%1 holds no keyboard shortcuts.</source>
        <translation>%1 不包含键盘快捷键。</translation>
    </message>
    <message>
        <source>%1 of its %2 lines say nothing here: %3</source>
        <translation>其中 %1 行（共 %2 行）在此无意义：%3</translation>
    </message>
    <message>
        <source>The keys are those of the file %1.</source>
        <translation>按键取自文件 %1。</translation>
    </message>
    <message>
        <source>%1 are the keys for &quot;%2&quot;, and &quot;%3&quot; does not have them.</source>
        <translation>%1 是“%2”的按键，“%3”没有此按键。</translation>
    </message>
    <message>
        <source>The keys are as they were.</source>
        <translation>按键保持原样。</translation>
    </message>
    <message>
        <source>And %1 more.</source>
        <translation>还有 %1 项。</translation>
    </message>
    <message>
        <source>Not all keys of the file can be taken as they are.</source>
        <translation>文件中的按键不能全部原样采用。</translation>
    </message>
    <message>
        <source>Take &amp;Keys</source>
        <translation>采用按键(&amp;K)</translation>
    </message>
</context>
<context>
    <name>CTextMatcher</name>
    <message>
        <source>The regular expression is too long.</source>
        <translation>正则表达式太长。</translation>
    </message>
    <message>
        <source>At character %1: %2</source>
        <translation>第 %1 个字符处：%2</translation>
    </message>
    <message>
        <source>The regular expression takes too long. Make it simpler.</source>
        <translation>正则表达式耗时过长。请将其简化。</translation>
    </message>
    <message>
        <source>The regular expression has no groups, so \%1 stands for nothing.</source>
        <translation>正则表达式没有分组，\%1 不代表任何内容。</translation>
    </message>
    <message>
        <source>\%1 stands for nothing: the last group of the regular expression is \%2.</source>
        <translation>\%1 不代表任何内容：正则表达式的最后一个分组是 \%2。</translation>
    </message>
</context>
<context>
    <name>FontEntries</name>
    <message>
        <source>%1 · %2 px · %3</source>
        <translation>%1 · %2 像素 · %3</translation>
    </message>
    <message>
        <source>%1 · %2 px</source>
        <translation>%1 · %2 像素</translation>
    </message>
</context>
<context>
    <name>FontFiles</name>
    <message>
        <source>%1: there is no such file</source>
        <translation>%1：没有这样的文件</translation>
    </message>
</context>
<context>
    <name>CGridComboWidget</name>
    <message>
        <source>Grid</source>
        <translation>网格</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>实线</translation>
    </message>
    <message>
        <source>Dashes</source>
        <translation>虚线</translation>
    </message>
    <message>
        <source>Dots</source>
        <translation>点线</translation>
    </message>
    <message>
        <source>Change the grid colour</source>
        <translation>更改网格颜色</translation>
    </message>
    <message>
        <source>Choose Grid Type</source>
        <translation>选择网格类型</translation>
    </message>
</context>
<context>
    <name>CGuideActions</name>
    <message>
        <source>Pixels from the left:</source>
        <translation>距左侧的像素：</translation>
    </message>
    <message>
        <source>Pixels from the top:</source>
        <translation>距顶部的像素：</translation>
    </message>
    <message>
        <source>Guides</source>
        <translation>参考线</translation>
    </message>
    <message>
        <source>&amp;Show Guides</source>
        <translation>显示参考线(&amp;S)</translation>
    </message>
    <message>
        <source>Show the guides, which are drawn out of the rulers</source>
        <translation>显示从标尺拖出的参考线</translation>
    </message>
    <message>
        <source>New &amp;Vertical Guide...</source>
        <translation>新建垂直参考线(&amp;V)...</translation>
    </message>
    <message>
        <source>New &amp;Horizontal Guide...</source>
        <translation>新建水平参考线(&amp;H)...</translation>
    </message>
    <message>
        <source>Add a guide at a given place</source>
        <translation>在指定位置添加参考线</translation>
    </message>
    <message>
        <source>&amp;Lock All Guides</source>
        <translation>锁定所有参考线(&amp;L)</translation>
    </message>
    <message>
        <source>The pointer takes hold of no guide of the page</source>
        <translation>指针不再抓取本页面的参考线</translation>
    </message>
    <message>
        <source>&amp;Unlock All Guides</source>
        <translation>解锁所有参考线(&amp;U)</translation>
    </message>
    <message>
        <source>The pointer takes hold of the page&apos;s guides</source>
        <translation>指针可抓取本页面的参考线</translation>
    </message>
    <message>
        <source>&amp;Clear All Guides</source>
        <translation>清除所有参考线(&amp;C)</translation>
    </message>
    <message>
        <source>Remove all guides from the page</source>
        <translation>从页面移除所有参考线</translation>
    </message>
</context>
<context>
    <name>CGuideEdits</name>
    <message>
        <source>Add Guide</source>
        <translation>添加参考线</translation>
    </message>
    <message>
        <source>Move Guide</source>
        <translation>移动参考线</translation>
    </message>
    <message>
        <source>Lock Guide</source>
        <translation>锁定参考线</translation>
    </message>
    <message>
        <source>Unlock Guide</source>
        <translation>解锁参考线</translation>
    </message>
    <message>
        <source>Change Guide Colour</source>
        <translation>更改参考线颜色</translation>
    </message>
    <message>
        <source>Delete Guide</source>
        <translation>删除参考线</translation>
    </message>
    <message>
        <source>Clear Guides</source>
        <translation>清除参考线</translation>
    </message>
    <message>
        <source>Lock Guides</source>
        <translation>锁定所有参考线</translation>
    </message>
    <message>
        <source>Unlock Guides</source>
        <translation>解锁所有参考线</translation>
    </message>
</context>
<context>
    <name>CGuideMenu</name>
    <message>
        <source>&amp;Red</source>
        <translation>红色(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Orange</source>
        <translation>橙色(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Green</source>
        <translation>绿色(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Blue</source>
        <translation>蓝色(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Position...</source>
        <translation>位置(&amp;P)...</translation>
    </message>
    <message>
        <source>&amp;Locked</source>
        <translation>锁定(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>颜色(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Delete Guide</source>
        <translation>删除参考线(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Usual</source>
        <translation>默认(&amp;U)</translation>
    </message>
    <message>
        <source>O&amp;ther...</source>
        <translation>其他(&amp;T)...</translation>
    </message>
    <message>
        <source>Guide Position</source>
        <translation>参考线位置</translation>
    </message>
    <message>
        <source>Pixels from the left:</source>
        <translation>距左侧的像素：</translation>
    </message>
    <message>
        <source>Pixels from the top:</source>
        <translation>距顶部的像素：</translation>
    </message>
</context>
<context>
    <name>CGuideTool</name>
    <message>
        <source>No guide</source>
        <translation>无参考线</translation>
    </message>
    <message>
        <source>Delete guide</source>
        <translation>删除参考线</translation>
    </message>
    <message>
        <source>X %1</source>
        <translation>X %1</translation>
    </message>
    <message>
        <source>Y %1</source>
        <translation>Y %1</translation>
    </message>
</context>
<context>
    <name>CHelpWindow</name>
    <message>
        <source>%1 Help</source>
        <translation>%1 帮助</translation>
    </message>
</context>
<context>
    <name>CImageChooser</name>
    <message>
        <source>%1 stays as it is: the image file that it was made of is gone, so it cannot be converted into another format. Choose the file anew.</source>
        <translation>%1 保持不变：生成它的图像文件已不存在，因此无法转换为其他格式。请重新选择文件。</translation>
    </message>
    <message>
        <source>The image %1 was not taken.</source>
        <translation>未采用图像 %1。</translation>
    </message>
    <message>
        <source>The image %1 is larger than the chip&apos;s graphics memory.</source>
        <translation>图像 %1 大于芯片的图形内存。</translation>
    </message>
    <message>
        <source>Change Image</source>
        <translation>更改图像</translation>
    </message>
</context>
<context>
    <name>CImageFileConverter</name>
    <message>
        <source>%1: this is not a regular file</source>
        <translation>%1：这不是普通文件</translation>
    </message>
    <message>
        <source>%1: there is no such file</source>
        <translation>%1：没有这个文件</translation>
    </message>
    <message>
        <source>%1: the file is too big</source>
        <translation>%1：文件太大</translation>
    </message>
    <message>
        <source>no project is open</source>
        <translation>没有打开的项目</translation>
    </message>
    <message>
        <source>%1: more than %2 pixels wide or high</source>
        <translation>%1：宽或高超过 %2 像素</translation>
    </message>
    <message>
        <source>there is no such bitmap format</source>
        <translation>没有这种位图格式</translation>
    </message>
    <message>
        <source>%1: cannot be written into</source>
        <translation>%1：无法写入</translation>
    </message>
    <message>
        <source>%1: cannot be renamed</source>
        <translation>%1：无法重命名</translation>
    </message>
    <message>
        <source>%1: was not written</source>
        <translation>%1：未写入</translation>
    </message>
    <message>
        <source>%1: the folder cannot be made</source>
        <translation>%1：无法创建文件夹</translation>
    </message>
    <message>
        <source>%1: nothing is shown, because its size is not known. The .json file that the image tools write beside it tells the size.</source>
        <translation>%1：大小未知，因此不显示。图像工具在其旁写入的 .json 文件中有大小。</translation>
    </message>
    <message>
        <source>%1: its size cannot be read</source>
        <translation>%1：无法读取其大小</translation>
    </message>
</context>
<context>
    <name>CImageImport</name>
    <message>
        <source>These images were not found: %1</source>
        <translation>找不到这些图像：%1</translation>
    </message>
    <message>
        <source>%1: the file is too big</source>
        <translation>%1：文件太大</translation>
    </message>
</context>
<context>
    <name>CItemArrange</name>
    <message>
        <source>Select one or more items first</source>
        <translation>请先选择一个或多个对象</translation>
    </message>
    <message>
        <source>Select two or more items first</source>
        <translation>请先选择两个或更多对象</translation>
    </message>
    <message>
        <source>Select three or more items first</source>
        <translation>请先选择三个或更多对象</translation>
    </message>
    <message>
        <source>None of the other selected items can change its size</source>
        <translation>其他选中的对象都不能改变大小</translation>
    </message>
    <message>
        <source>All selected items are locked</source>
        <translation>所有选中的对象都已锁定</translation>
    </message>
</context>
<context>
    <name>CLanguageDialog</name>
    <message>
        <source>Change Language</source>
        <translation>更改语言</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>语言(&amp;L)：</translation>
    </message>
</context>
<context>
    <name>CMainPanels</name>
    <message>
        <source>Project Explorer</source>
        <translation>项目资源管理器</translation>
    </message>
    <message>
        <source>Navigator</source>
        <translation>导航器</translation>
    </message>
    <message>
        <source>Widget Selection</source>
        <translation>控件选择</translation>
    </message>
    <message>
        <source>Widget Properties</source>
        <translation>控件属性</translation>
    </message>
    <message>
        <source>Output Window</source>
        <translation>输出窗口</translation>
    </message>
    <message>
        <source>Open a page first: the widget is placed in the middle of it.</source>
        <translation>请先打开一个页面：控件将放置在页面中间。</translation>
    </message>
    <message>
        <source>Batch Edit</source>
        <translation>批量编辑</translation>
    </message>
</context>
<context>
    <name>CMainWindow</name>
    <message>
        <source>The program ended before its window was there when it was started last, so it starts with default settings. The settings of before are kept as %1.</source>
        <translation>上次启动时程序在窗口出现之前就已结束，因此现在使用默认设置启动。原来的设置保存为 %1。</translation>
    </message>
    <message>
        <source>The settings file could not be read, so the program starts with default settings. The file is kept as %1.</source>
        <translation>无法读取设置文件，因此程序使用默认设置启动。该文件保存为 %1。</translation>
    </message>
    <message>
        <source>Delete Selected Items</source>
        <translation>删除选中的对象</translation>
    </message>
    <message>
        <source>Could not initialise Widget Library Manager</source>
        <translation>无法初始化控件库管理器</translation>
    </message>
    <message>
        <source>Could not initialise emulator</source>
        <translation>无法初始化模拟器</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Built at: </source>
        <translation>构建日期：</translation>
    </message>
    <message>
        <source>dd MMMM yyyy</source>
        <comment>form of a date</comment>
        <translation>yyyy年M月d日</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>版本 %1</translation>
    </message>
    <message>
        <source>Lays out the screens of embedded user interfaces for KIV graphics controllers.</source>
        <translation>为 KIV 图形控制器设计嵌入式用户界面的屏幕。</translation>
    </message>
    <message>
        <source>Unsaved work of a session that ended unexpectedly is kept. The start page offers it: close the project to see it.</source>
        <translation>意外结束的会话中未保存的工作仍然保留。起始页会提供恢复：请关闭项目以查看。</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>已保存 %1</translation>
    </message>
    <message>
        <source>Saved automatically: %1</source>
        <translation>已自动保存：%1</translation>
    </message>
</context>
<context>
    <name>CMenuBar</name>
    <message>
        <source>&amp;Faint</source>
        <translation>淡化(&amp;F)</translation>
    </message>
    <message>
        <source>Draw the grid so that it hardly covers the page</source>
        <translation>绘制几乎不遮挡页面的网格</translation>
    </message>
    <message>
        <source>Toolbar</source>
        <translation>工具栏</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>新建(&amp;N)</translation>
    </message>
    <message>
        <source>Create a new project</source>
        <translation>创建新项目</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>打开(&amp;O)</translation>
    </message>
    <message>
        <source>Open an existing project</source>
        <translation>打开现有项目</translation>
    </message>
    <message>
        <source>&amp;Close Project</source>
        <translation>关闭项目(&amp;C)</translation>
    </message>
    <message>
        <source>Close current project</source>
        <translation>关闭当前项目</translation>
    </message>
    <message>
        <source>&amp;Save Project</source>
        <translation>保存项目(&amp;S)</translation>
    </message>
    <message>
        <source>Save current project</source>
        <translation>保存当前项目</translation>
    </message>
    <message>
        <source>&amp;Save As</source>
        <translation>另存为(&amp;A)</translation>
    </message>
    <message>
        <source>Save current project as...</source>
        <translation>将当前项目另存为...</translation>
    </message>
    <message>
        <source>&amp;New Page</source>
        <translation>新建页面(&amp;P)</translation>
    </message>
    <message>
        <source>Add a new page to the current project</source>
        <translation>向当前项目添加新页面</translation>
    </message>
    <message>
        <source>&amp;Project to DL</source>
        <translation>项目导出为 DL(&amp;P)</translation>
    </message>
    <message>
        <source>Export project in DL format</source>
        <translation>以 DL 格式导出项目</translation>
    </message>
    <message>
        <source>&amp;Page to DL</source>
        <translation>页面导出为 DL(&amp;G)</translation>
    </message>
    <message>
        <source>Export page in DL format</source>
        <translation>以 DL 格式导出页面</translation>
    </message>
    <message>
        <source>&amp;Project to Binary</source>
        <translation>项目导出为二进制(&amp;R)</translation>
    </message>
    <message>
        <source>Export project in Binary format</source>
        <translation>以二进制格式导出项目</translation>
    </message>
    <message>
        <source>&amp;Page to Binary</source>
        <translation>页面导出为二进制(&amp;B)</translation>
    </message>
    <message>
        <source>Export page in Binary format</source>
        <translation>以二进制格式导出页面</translation>
    </message>
    <message>
        <source>&amp;Print Screen</source>
        <translation>屏幕截图(&amp;T)</translation>
    </message>
    <message>
        <source>Print Screen</source>
        <translation>保存屏幕截图</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>退出(&amp;X)</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>退出程序</translation>
    </message>
    <message>
        <source>&amp;Bring to Front</source>
        <translation>置于顶层(&amp;T)</translation>
    </message>
    <message>
        <source>Bring to Front</source>
        <translation>置于顶层</translation>
    </message>
    <message>
        <source>&amp;Send to Back</source>
        <translation>置于底层(&amp;B)</translation>
    </message>
    <message>
        <source>Send to Back</source>
        <translation>置于底层</translation>
    </message>
    <message>
        <source>&amp;Bring Forward</source>
        <translation>上移一层(&amp;F)</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>上移一层</translation>
    </message>
    <message>
        <source>&amp;Send Backward</source>
        <translation>下移一层(&amp;D)</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>下移一层</translation>
    </message>
    <message>
        <source>&amp;Cut</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>&amp;All</source>
        <translation>全部(&amp;A)</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>无(&amp;N)</translation>
    </message>
    <message>
        <source>Select None</source>
        <translation>取消选择</translation>
    </message>
    <message>
        <source>&amp;Inverse</source>
        <translation>反向(&amp;I)</translation>
    </message>
    <message>
        <source>Inverse Selection</source>
        <translation>反向选择</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>删除(&amp;D)</translation>
    </message>
    <message>
        <source>Delete Selected Items</source>
        <translation>删除选中的对象</translation>
    </message>
    <message>
        <source>&amp;Lock/Unlock</source>
        <translation>锁定/解锁(&amp;L)</translation>
    </message>
    <message>
        <source>Rena&amp;me</source>
        <translation>重命名(&amp;M)</translation>
    </message>
    <message>
        <source>Rename the selected item or page</source>
        <translation>重命名所选对象或页面</translation>
    </message>
    <message>
        <source>Lock/Unlock selected items</source>
        <translation>锁定或解锁选中的对象</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>&amp;Group Selected</source>
        <translation>组合所选(&amp;G)</translation>
    </message>
    <message>
        <source>Group selected objects together</source>
        <translation>将选中的对象组合在一起</translation>
    </message>
    <message>
        <source>&amp;Ungroup</source>
        <translation>取消组合(&amp;U)</translation>
    </message>
    <message>
        <source>Ungroup selected objects</source>
        <translation>取消选中对象的组合</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>深色(&amp;D)</translation>
    </message>
    <message>
        <source>Change the theme to the Dark style</source>
        <translation>切换到深色主题</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>浅色(&amp;L)</translation>
    </message>
    <message>
        <source>Change the theme to the Light style</source>
        <translation>切换到浅色主题</translation>
    </message>
    <message>
        <source>&amp;Zoom (100%)</source>
        <translation>缩放 (100%)(&amp;Z)</translation>
    </message>
    <message>
        <source>Zoom to pixel size 100%</source>
        <translation>缩放到像素大小 100%</translation>
    </message>
    <message>
        <source>&amp;Fit to Page</source>
        <translation>适合页面(&amp;P)</translation>
    </message>
    <message>
        <source>Fit to Page</source>
        <translation>适合页面</translation>
    </message>
    <message>
        <source>&amp;Fit to Width</source>
        <translation>适合宽度(&amp;W)</translation>
    </message>
    <message>
        <source>Fit to Width</source>
        <translation>适合宽度</translation>
    </message>
    <message>
        <source>&amp;Ruler Size...</source>
        <translation>标尺大小(&amp;R)...</translation>
    </message>
    <message>
        <source>Change ruler size</source>
        <translation>更改标尺大小</translation>
    </message>
    <message>
        <source>&amp;Grid Size...</source>
        <translation>网格大小(&amp;G)...</translation>
    </message>
    <message>
        <source>Change grid size</source>
        <translation>更改网格大小</translation>
    </message>
    <message>
        <source>&amp;Toggle</source>
        <translation>开/关(&amp;T)</translation>
    </message>
    <message>
        <source>Toggle the grid on/off</source>
        <translation>打开或关闭网格</translation>
    </message>
    <message>
        <source>&amp;Type</source>
        <translation>类型(&amp;Y)</translation>
    </message>
    <message>
        <source>Change the grid type</source>
        <translation>更改网格类型</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>颜色(&amp;C)</translation>
    </message>
    <message>
        <source>Change the grid colour</source>
        <translation>更改网格颜色</translation>
    </message>
    <message>
        <source>Output Window</source>
        <translation>输出窗口</translation>
    </message>
    <message>
        <source>Status Bar</source>
        <translation>状态栏</translation>
    </message>
    <message>
        <source>Project Window</source>
        <translation>项目资源管理器</translation>
    </message>
    <message>
        <source>Properties Window</source>
        <translation>控件属性</translation>
    </message>
    <message>
        <source>Library Window</source>
        <translation>控件选择</translation>
    </message>
    <message>
        <source>&amp;Resolution</source>
        <translation>分辨率(&amp;R)</translation>
    </message>
    <message>
        <source>Change target screen resolution</source>
        <translation>更改目标屏幕分辨率</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>搜索(&amp;S)</translation>
    </message>
    <message>
        <source>Search objects by text</source>
        <translation>按文本搜索对象</translation>
    </message>
    <message>
        <source>&amp;Spell Check</source>
        <translation>拼写检查(&amp;S)</translation>
    </message>
    <message>
        <source>Spell check</source>
        <translation>拼写检查</translation>
    </message>
    <message>
        <source>&amp;Snap to Grid</source>
        <translation>对齐网格(&amp;S)</translation>
    </message>
    <message>
        <source>Toggle snap to grid on/off</source>
        <translation>打开或关闭对齐网格</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>选项(&amp;O)</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>KIV Panel Composer Help</source>
        <translation>KIV Panel Composer 帮助</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>&amp;Updates</source>
        <translation>更新(&amp;U)</translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation>检查更新</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Fonts...</source>
        <translation>字体(&amp;F)...</translation>
    </message>
    <message>
        <source>Add fonts of your own to the project</source>
        <translation>向项目添加自己的字体</translation>
    </message>
    <message>
        <source>&amp;Project</source>
        <translation>项目(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>工具(&amp;T)</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>最近打开</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>排列顺序</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>剪贴板</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>Grouping</source>
        <translation>组合</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>缩放</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>网格</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>Export Pac&amp;kage...</source>
        <translation>导出程序包(&amp;K)...</translation>
    </message>
    <message>
        <source>Export all that a firmware needs to draw the pages</source>
        <translation>导出固件绘制页面所需的全部内容</translation>
    </message>
    <message>
        <source>%1 (there are unsaved changes)</source>
        <translation>%1（有未保存的更改）</translation>
    </message>
    <message>
        <source>&amp;Revert</source>
        <translation>还原(&amp;R)</translation>
    </message>
    <message>
        <source>Go back to what you saved last</source>
        <translation>返回上次保存的内容</translation>
    </message>
    <message>
        <source>&amp;Arrange</source>
        <translation>排列(&amp;A)</translation>
    </message>
    <message>
        <source>Paste in P&amp;lace</source>
        <translation>原位粘贴(&amp;L)</translation>
    </message>
    <message>
        <source>Paste to where it was copied</source>
        <translation>粘贴到复制时的位置</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>创建副本(&amp;D)</translation>
    </message>
    <message>
        <source>Copy the selected items beside themselves</source>
        <translation>在旁边复制选中的对象</translation>
    </message>
    <message>
        <source>Fit to &amp;Selection</source>
        <translation>适合所选(&amp;S)</translation>
    </message>
    <message>
        <source>Show the selected items as large as the view allows</source>
        <translation>尽可能大地显示选中的对象</translation>
    </message>
    <message>
        <source>&amp;Hide/Show</source>
        <translation>隐藏/显示(&amp;H)</translation>
    </message>
    <message>
        <source>Hide the selected items while editing, or show them again; they are exported all the same</source>
        <translation>编辑时隐藏所选对象，或再次显示；导出时仍包含它们</translation>
    </message>
    <message>
        <source>Sho&amp;w All Hidden</source>
        <translation>显示所有隐藏项(&amp;W)</translation>
    </message>
    <message>
        <source>Show everything on this page that is hidden while editing</source>
        <translation>显示此页面上编辑时隐藏的全部内容</translation>
    </message>
    <message>
        <source>&amp;Bright</source>
        <translation>明亮(&amp;B)</translation>
    </message>
    <message>
        <source>Change the theme to the Bright style</source>
        <translation>切换到明亮主题</translation>
    </message>
    <message>
        <source>Batch Edit</source>
        <translation>批量编辑</translation>
    </message>
    <message>
        <source>Change the properties of all selected items at once</source>
        <translation>一次更改所有所选对象的属性</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>上一个(&amp;V)</translation>
    </message>
    <message>
        <source>Zoom and place as before the last change</source>
        <translation>恢复上次更改前的缩放和位置</translation>
    </message>
</context>
<context>
    <name>CMultiPointItemView</name>
    <message>
        <source>Add Point</source>
        <translation>添加点</translation>
    </message>
    <message>
        <source>Remove Point</source>
        <translation>删除点</translation>
    </message>
</context>
<context>
    <name>COptionDialog</name>
    <message>
        <source>&amp;Enabled</source>
        <translation>启用(&amp;E)</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source> seconds</source>
        <translation> 秒</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>Screen &amp;Size</source>
        <translation>屏幕大小(&amp;S)</translation>
    </message>
    <message>
        <source>Project &amp;Name</source>
        <translation>项目名称(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Platform</source>
        <translation>平台(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Working Directory</source>
        <translation>工作目录(&amp;W)</translation>
    </message>
    <message>
        <source>Autosave</source>
        <translation>自动保存</translation>
    </message>
    <message>
        <source>Autosave &amp;Interval</source>
        <translation>自动保存间隔(&amp;I)</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>自定义</translation>
    </message>
    <message>
        <source>A screen is at least one pixel wide and high.</source>
        <translation>屏幕的宽和高至少为一个像素。</translation>
    </message>
    <message>
        <source>Change Project Options</source>
        <translation>更改项目选项</translation>
    </message>
    <message>
        <source> px</source>
        <translation> 像素</translation>
    </message>
    <message>
        <source>Moving with the Arrow Keys</source>
        <translation>用方向键移动</translation>
    </message>
    <message>
        <source>S&amp;tep</source>
        <translation>步长(&amp;T)</translation>
    </message>
    <message>
        <source>With S&amp;hift</source>
        <translation>按住 Shift(&amp;H)</translation>
    </message>
</context>
<context>
    <name>COutputWindowView</name>
    <message>
        <source>No messages</source>
        <translation>没有消息</translation>
    </message>
    <message>
        <source>Click to select the item</source>
        <translation>单击以选择该对象</translation>
    </message>
    <message>
        <source>(%1 times)</source>
        <translation>（%1 次）</translation>
    </message>
    <message>
        <source>and %1 more errors</source>
        <translation>以及另外 %1 个错误</translation>
    </message>
</context>
<context>
    <name>CPackageBuilder</name>
    <message>
        <source>The project has no screen to pack.</source>
        <translation>项目没有可打包的页面。</translation>
    </message>
    <message>
        <source>A screen without width or height cannot be packed.</source>
        <translation>没有宽度或高度的页面无法打包。</translation>
    </message>
    <message>
        <source>Screen &quot;%1&quot; does not fit into the chip.</source>
        <translation>页面“%1”超出芯片容量。</translation>
    </message>
    <message>
        <source>It needs %1 bytes of %2, the chip has %3.</source>
        <translation>需要 %1 字节的 %2，芯片只有 %3。</translation>
    </message>
    <message>
        <source>Screen &quot;%1&quot;: the emulator does not tell what lies in RAM_G.</source>
        <translation>页面“%1”：模拟器没有给出 RAM_G 的内容。</translation>
    </message>
    <message>
        <source>Screen &quot;%1&quot; draws from address %2, where nothing lies.</source>
        <translation>页面“%1”从地址 %2 绘制，但该处没有内容。</translation>
    </message>
    <message>
        <source>The plan of RAM_G has %1 blocks; a package can hold %2.</source>
        <translation>RAM_G 规划有 %1 个块；程序包最多容纳 %2 个。</translation>
    </message>
</context>
<context>
    <name>CPageOperations</name>
    <message>
        <source>What was copied cannot be pasted: %1</source>
        <translation>无法粘贴复制的内容：%1</translation>
    </message>
    <message>
        <source>Cut Page</source>
        <translation>剪切页面</translation>
    </message>
    <message>
        <source>Paste Page</source>
        <translation>粘贴页面</translation>
    </message>
    <message>
        <source>Load Page</source>
        <translation>载入页面</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>There is no page in it.</source>
        <translation>其中没有页面。</translation>
    </message>
</context>
<context>
    <name>CPrintScreenDialog</name>
    <message>
        <source>Save Screenshots</source>
        <translation>保存屏幕截图</translation>
    </message>
    <message>
        <source>Select directory to save screens to</source>
        <translation>选择保存屏幕截图的目录</translation>
    </message>
    <message>
        <source>Save Selection</source>
        <translation>保存所选</translation>
    </message>
    <message>
        <source>Save selected screens and return to editor</source>
        <translation>保存选中的屏幕并返回编辑器</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancel and return to editor</source>
        <translation>取消并返回编辑器</translation>
    </message>
    <message>
        <source>Save Location: </source>
        <translation>保存位置：</translation>
    </message>
    <message>
        <source>No page was picked, so no picture was saved.</source>
        <translation>未选择任何页面，因此没有保存图片。</translation>
    </message>
</context>
<context>
    <name>CProgramData</name>
    <message>
        <source>The render script %1 is missing.</source>
        <translation>缺少渲染脚本 %1。</translation>
    </message>
</context>
<context>
    <name>CProjectExplorerView</name>
    <message>
        <source>Cut Page</source>
        <translation>剪切页面</translation>
    </message>
    <message>
        <source>Copy Page</source>
        <translation>复制页面</translation>
    </message>
    <message>
        <source>Paste Page</source>
        <translation>粘贴页面</translation>
    </message>
    <message>
        <source>Save Page</source>
        <translation>保存页面</translation>
    </message>
    <message>
        <source>Load Page</source>
        <translation>载入页面</translation>
    </message>
    <message>
        <source>Project Files (*.xml *.page)</source>
        <translation>项目文件 (*.xml *.page)</translation>
    </message>
    <message>
        <source>No screen</source>
        <translation>没有页面</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>没有项目</translation>
    </message>
    <message>
        <source>Show on the canvas</source>
        <translation>在画布上显示</translation>
    </message>
    <message>
        <source>Hide on the canvas</source>
        <translation>在画布上隐藏</translation>
    </message>
    <message>
        <source>Unlock</source>
        <translation>解锁</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>锁定</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>未找到任何内容</translation>
    </message>
</context>
<context>
    <name>CProjectExporter</name>
    <message>
        <source>%1 could not be opened: %2</source>
        <translation>无法打开 %1：%2</translation>
    </message>
    <message>
        <source>An error occurred during the export process</source>
        <translation>导出过程中发生错误</translation>
    </message>
</context>
<context>
    <name>CProjectModel</name>
    <message>
        <source>The root element is %1 instead of %2.</source>
        <translation>根元素是 %1，而不是 %2。</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
</context>
<context>
    <name>CProjectSession</name>
    <message>
        <source>%1 for %2</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>The specified file is not a valid project file.</source>
        <translation>指定的文件不是有效的项目文件。</translation>
    </message>
    <message>
        <source>Another copy of the program has taken %1 over in the meantime.</source>
        <translation>程序的另一个实例此时已接管 %1。</translation>
    </message>
    <message>
        <source>The folder of %1 cannot hold a lock file, so the project is not protected against being opened twice.</source>
        <translation>%1 所在的文件夹无法存放锁文件，因此该项目没有防止重复打开的保护。</translation>
    </message>
    <message>
        <source>%1 is not a lock file, so the project is not protected against being opened twice.</source>
        <translation>%1 不是锁文件，因此该项目没有防止重复打开的保护。</translation>
    </message>
    <message>
        <source>Could not open specified project file.</source>
        <translation>无法打开指定的项目文件。</translation>
    </message>
    <message>
        <source>An error occurred during saving the project</source>
        <translation>保存项目时发生错误</translation>
    </message>
    <message>
        <source>%1 is open in another copy of the program.</source>
        <translation>%1 已在程序的另一个实例中打开。</translation>
    </message>
    <message>
        <source>The project was never saved, so it has no file that could be saved to automatically.</source>
        <translation>该项目从未保存过，因此没有可供自动保存的文件。</translation>
    </message>
    <message>
        <source>%1 is not saved automatically: another copy of the program has taken it over. Use Save As.</source>
        <translation>%1 不会自动保存：程序的另一个实例已接管它。请使用“另存为”。</translation>
    </message>
    <message>
        <source>%1 is not saved automatically: it was changed by another program. Save it to decide which version stays.</source>
        <translation>%1 不会自动保存：它已被其他程序更改。请保存以决定保留哪个版本。</translation>
    </message>
    <message>
        <source>%1 has no name in front of its suffix.</source>
        <translation>%1 的扩展名之前没有名称。</translation>
    </message>
    <message>
        <source>Until the project is saved, a recovery copy is kept, which is offered at the next start should the program end unexpectedly.</source>
        <translation>在项目保存之前会保留一份恢复副本；如果程序意外结束，下次启动时将提供该副本。</translation>
    </message>
    <message>
        <source>A recovery copy cannot be kept either: %1</source>
        <translation>也无法保留恢复副本：%1</translation>
    </message>
    <message>
        <source>The recovery copy is in use, or no longer there.</source>
        <translation>恢复副本正在使用或已不存在。</translation>
    </message>
</context>
<context>
    <name>CPropertyEditorFactory</name>
    <message>
        <source>Choose a file</source>
        <translation>选择文件</translation>
    </message>
    <message>
        <source>Choose a colour</source>
        <translation>选择颜色</translation>
    </message>
</context>
<context>
    <name>CPropertyManager</name>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>%1 or more</source>
        <translation>不小于 %1</translation>
    </message>
    <message>
        <source>at most %1</source>
        <translation>不大于 %1</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 到 %2</translation>
    </message>
</context>
<context>
    <name>CReadingNotice</name>
    <message>
        <source>Reading %1...</source>
        <translation>正在读取 %1...</translation>
    </message>
</context>
<context>
    <name>CRecoveryCopy</name>
    <message>
        <source>The folder %1 could not be made</source>
        <translation>无法创建文件夹 %1</translation>
    </message>
</context>
<context>
    <name>CScreen</name>
    <message>
        <source>Rename Screen</source>
        <translation>重命名页面</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Close Others</source>
        <translation>关闭其他</translation>
    </message>
    <message>
        <source>Rename…</source>
        <translation>重命名…</translation>
    </message>
    <message>
        <source>New Screen</source>
        <translation>新建页面</translation>
    </message>
    <message>
        <source>The project has no page. &quot;New Page&quot; makes one.</source>
        <translation>项目没有页面。用“新建页面”可添加一个。</translation>
    </message>
    <message>
        <source>No screen is open. Choose one in the project explorer or the navigator.</source>
        <translation>没有打开的页面。请在项目资源管理器或导航器中选择一个。</translation>
    </message>
    <message>
        <source>No project is open.</source>
        <translation>没有打开的项目。</translation>
    </message>
</context>
<context>
    <name>CItemImages</name>
    <message>
        <source>Select media file to use</source>
        <translation>选择要使用的媒体文件</translation>
    </message>
    <message>
        <source>Select image file to use</source>
        <translation>选择要使用的图像文件</translation>
    </message>
    <message>
        <source>Media Files (*.jpg *.png *.avi)</source>
        <translation>媒体文件 (*.jpg *.png *.avi)</translation>
    </message>
    <message>
        <source>Image Files (*.png *.jpg *.bmp *.raw)</source>
        <translation>图像文件 (*.png *.jpg *.bmp *.raw)</translation>
    </message>
</context>
<context>
    <name>CItemDrop</name>
    <message>
        <source>RAM_G size is limited!</source>
        <translation>RAM_G 大小有限！</translation>
    </message>
    <message>
        <source>File size is too big</source>
        <translation>文件太大</translation>
    </message>
    <message>
        <source>There is no widget kind %1.</source>
        <translation>没有控件类型 %1。</translation>
    </message>
    <message>
        <source>No image was added.</source>
        <translation>未添加图像。</translation>
    </message>
    <message>
        <source>Move Selected Items</source>
        <translation>移动选中的对象</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>添加文件</translation>
    </message>
</context>
<context>
    <name>CSelectionCommands</name>
    <message>
        <source>The clipboard holds neither widgets nor pages, so nothing was pasted.</source>
        <translation>剪贴板中既没有控件也没有页面，因此没有粘贴任何内容。</translation>
    </message>
    <message>
        <source>What was copied cannot be pasted: %1</source>
        <translation>无法粘贴复制的内容：%1</translation>
    </message>
    <message>
        <source>There is no widget in it.</source>
        <translation>其中没有控件。</translation>
    </message>
    <message>
        <source>A locked group stays together. Unlock it to ungroup it.</source>
        <translation>已锁定的组保持不变。请先解锁再取消组合。</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Lock/Unlock Multiple</source>
        <translation>锁定/解锁多个</translation>
    </message>
    <message>
        <source>Lock/Unlock</source>
        <translation>锁定/解锁</translation>
    </message>
    <message>
        <source>Move Object</source>
        <translation>移动对象</translation>
    </message>
    <message>
        <source>Move Selected Items</source>
        <translation>移动选中的对象</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Bring to Front</source>
        <translation>置于顶层</translation>
    </message>
    <message>
        <source>Send to Back</source>
        <translation>置于底层</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>上移一层</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>下移一层</translation>
    </message>
    <message>
        <source>Group Selected</source>
        <translation>组合所选</translation>
    </message>
    <message>
        <source>Ungroup</source>
        <translation>取消组合</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>创建副本</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>隐藏</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>Paste Style</source>
        <translation>粘贴样式</translation>
    </message>
    <message>
        <source>Paste to Replace</source>
        <translation>粘贴替换</translation>
    </message>
    <message>
        <source>The clipboard holds no widgets, so nothing was replaced.</source>
        <translation>剪贴板中没有控件，因此未替换任何内容。</translation>
    </message>
    <message>
        <source>Hide/Show</source>
        <translation>隐藏/显示</translation>
    </message>
    <message>
        <source>Enter Group</source>
        <translation>进入组</translation>
    </message>
</context>
<context>
    <name>CSnapActions</name>
    <message>
        <source>S&amp;napping</source>
        <translation>吸附(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Snap While Dragging</source>
        <translation>拖动时吸附(&amp;S)</translation>
    </message>
    <message>
        <source>Bring what is dragged in line with others; while Control is held, it is not</source>
        <translation>使拖动的对象与其他对象对齐；按住 Ctrl 时不吸附</translation>
    </message>
    <message>
        <source>To &amp;Items</source>
        <translation>到对象(&amp;I)</translation>
    </message>
    <message>
        <source>Snap to edges and middles of other items</source>
        <translation>吸附到其他对象的边缘和中线</translation>
    </message>
    <message>
        <source>To the &amp;Page</source>
        <translation>到页面(&amp;P)</translation>
    </message>
    <message>
        <source>Snap to the edges and the middle of the page</source>
        <translation>吸附到页面的边缘和中线</translation>
    </message>
    <message>
        <source>To &amp;Guides</source>
        <translation>到参考线(&amp;G)</translation>
    </message>
    <message>
        <source>Snap to the guides of the page</source>
        <translation>吸附到页面的参考线</translation>
    </message>
    <message>
        <source>To &amp;Equal Gaps</source>
        <translation>到相等空隙(&amp;E)</translation>
    </message>
    <message>
        <source>Snap to where the gaps between neighbours are equal</source>
        <translation>吸附到与相邻对象空隙相等的位置</translation>
    </message>
</context>
<context>
    <name>CScreenNavigator</name>
    <message>
        <source>No screen</source>
        <translation>没有页面</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>没有项目</translation>
    </message>
</context>
<context>
    <name>CStartPage</name>
    <message>
        <source>yyyy-MM-dd hh:mm</source>
        <comment>form of a time</comment>
        <translation>yyyy/MM/dd hh:mm</translation>
    </message>
    <message>
        <source>New project...</source>
        <translation>新建项目...</translation>
    </message>
    <message>
        <source>Open a project...</source>
        <translation>打开项目...</translation>
    </message>
    <message>
        <source>Recent projects</source>
        <translation>最近打开的项目</translation>
    </message>
    <message>
        <source>Examples</source>
        <translation>示例</translation>
    </message>
    <message>
        <source>Unsaved work of a session that ended unexpectedly</source>
        <translation>意外结束的会话中未保存的工作</translation>
    </message>
    <message>
        <source>Recover &quot;%1&quot;</source>
        <translation>恢复“%1”</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
</context>
<context>
    <name>CStatusBar</name>
    <message>
        <source>of %1 (%2 %)</source>
        <translation>共 %1（%2 %）</translation>
    </message>
    <message>
        <source>Cursor position: </source>
        <translation>光标位置：</translation>
    </message>
    <message>
        <source> widgets</source>
        <translation> 个控件</translation>
    </message>
    <message>
        <source> bitmaps</source>
        <translation> 个位图</translation>
    </message>
    <message>
        <source> bytes RAM_DL used,</source>
        <translation> 字节 RAM_DL 已用，</translation>
    </message>
    <message>
        <source> bytes RAM_G used</source>
        <translation> 字节 RAM_G 已用</translation>
    </message>
    <message>
        <source>%1 hidden: exported, but not in these figures</source>
        <translation>%1 个已隐藏：会导出，但不计入这些数字</translation>
    </message>
</context>
<context>
    <name>CToolRunner</name>
    <message>
        <source>Converting Image</source>
        <translation>正在转换图像</translation>
    </message>
    <message>
        <source>Running tool </source>
        <translation>正在运行工具 </translation>
    </message>
    <message>
        <source>%1 cannot be ended</source>
        <translation>无法结束 %1</translation>
    </message>
    <message>
        <source>%1 was cancelled</source>
        <translation>%1 已取消</translation>
    </message>
    <message>
        <source>%1 did not end in time</source>
        <translation>%1 未在规定时间内结束</translation>
    </message>
    <message>
        <source>%1 cannot be started</source>
        <translation>无法启动 %1</translation>
    </message>
    <message>
        <source>%1 failed</source>
        <translation>%1 失败</translation>
    </message>
</context>
<context>
    <name>CUpdater</name>
    <message>
        <source>No Internet Connection</source>
        <translation>没有互联网连接</translation>
    </message>
    <message>
        <source>Unable to update software!</source>
        <translation>无法更新软件！</translation>
    </message>
    <message>
        <source>A newer version of the Panel Composer is available
Do you want to download it?
Installed version: </source>
        <translation>Panel Composer 有新版本可用
是否下载？
已安装版本：</translation>
    </message>
    <message>
        <source>
Latest version: </source>
        <translation>
最新版本：</translation>
    </message>
    <message>
        <source>Update Available</source>
        <translation>有可用更新</translation>
    </message>
    <message>
        <source>Application Up-to-date</source>
        <translation>程序已是最新</translation>
    </message>
    <message>
        <source>Your version is up to date.
Installed version: </source>
        <translation>您的版本是最新的。
已安装版本：</translation>
    </message>
</context>
<context>
    <name>CWidgetLibraryManager</name>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1 is not a widget library.</source>
        <translation>%1 不是控件库。</translation>
    </message>
</context>
<context>
    <name>CWidgetPropertiesView</name>
    <message>
        <source>No Item Selected</source>
        <translation>未选择对象</translation>
    </message>
    <message>
        <source>Multiple Items Selected</source>
        <translation>已选择多个对象</translation>
    </message>
    <message>
        <source>KIV Screen</source>
        <translation>KIV 屏幕</translation>
    </message>
    <message>
        <source>Widget Group</source>
        <translation>控件组</translation>
    </message>
    <message>
        <source>Property</source>
        <translation>属性</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
</context>
<context>
    <name>CStyleActions</name>
    <message>
        <source>Copy St&amp;yle</source>
        <translation>复制样式(&amp;Y)</translation>
    </message>
    <message>
        <source>Paste &amp;Style</source>
        <translation>粘贴样式(&amp;S)</translation>
    </message>
    <message>
        <source>Paste to &amp;Replace</source>
        <translation>粘贴替换(&amp;R)</translation>
    </message>
    <message>
        <source>Copy colours, fonts, line widths and options of the look</source>
        <translation>复制颜色、字体、线宽和外观选项</translation>
    </message>
    <message>
        <source>Give the selected items the copied style</source>
        <translation>将复制的样式应用到选中的对象</translation>
    </message>
    <message>
        <source>Paste in the place of each selected item, at its place in the order</source>
        <translation>粘贴到每个选中对象的位置，并保持其层叠顺序</translation>
    </message>
</context>
<context>
    <name>CWidgetSelectionPanel</name>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Filter the widgets</source>
        <translation>筛选控件</translation>
    </message>
</context>
<context>
    <name>CWidgetSelectionView</name>
    <message>
        <source>No widget found</source>
        <translation>未找到控件</translation>
    </message>
    <message>
        <source>Favourites</source>
        <translation>收藏</translation>
    </message>
    <message>
        <source>Last used</source>
        <translation>最近使用</translation>
    </message>
    <message>
        <source>Place in the Middle</source>
        <translation>放置到中间</translation>
    </message>
    <message>
        <source>Remove from Favourites</source>
        <translation>从收藏中移除</translation>
    </message>
    <message>
        <source>Add to Favourites</source>
        <translation>添加到收藏</translation>
    </message>
</context>
<context>
    <name>CXmlGuard</name>
    <message>
        <source>The document is larger than %1 MiB.</source>
        <translation>文档大于 %1 MiB。</translation>
    </message>
    <message>
        <source>The document contains zero bytes; it must be UTF-8 text.</source>
        <translation>文档包含零字节；它必须是 UTF-8 文本。</translation>
    </message>
    <message>
        <source>An element has more than %1 attributes.</source>
        <translation>某个元素的属性超过 %1 个。</translation>
    </message>
    <message>
        <source>The document has more than %1 attributes.</source>
        <translation>文档的属性超过 %1 个。</translation>
    </message>
    <message>
        <source>The encoding %1 is not supported; save the document as UTF-8.</source>
        <translation>不支持编码 %1；请将文档保存为 UTF-8。</translation>
    </message>
    <message>
        <source>Document types and entities are not allowed.</source>
        <translation>不允许使用文档类型和实体。</translation>
    </message>
    <message>
        <source>Elements are nested deeper than %1 levels.</source>
        <translation>元素嵌套超过 %1 层。</translation>
    </message>
    <message>
        <source>The document has more than %1 elements.</source>
        <translation>文档的元素超过 %1 个。</translation>
    </message>
    <message>
        <source>A value is longer than %1 MiB.</source>
        <translation>某个值长于 %1 MiB。</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>第 %1 行：%2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1 is larger than %2 MiB.</source>
        <translation>%1 大于 %2 MiB。</translation>
    </message>
</context>
<context>
    <name>CZoomComboWidget</name>
    <message>
        <source>Zoom</source>
        <translation>缩放</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>数值</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
</context>
<context>
    <name>ChipFindings</name>
    <message>
        <source>%1 is not available on %2</source>
        <translation>%2 不支持 %1</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot; is not available on %3</source>
        <translation>%3 不支持 %1“%2”</translation>
    </message>
    <message>
        <source>%1 %2 is over the maximum of %3, %4</source>
        <translation>%1 %2 超过 %3 的最大值 %4</translation>
    </message>
    <message>
        <source>%1 %2 is under the minimum of %3, %4</source>
        <translation>%1 %2 低于 %3 的最小值 %4</translation>
    </message>
</context>
<context>
    <name>FieldChecks</name>
    <message>
        <source>The project needs a name.</source>
        <translation>项目需要名称。</translation>
    </message>
    <message>
        <source>This cannot be the name of a file.</source>
        <translation>这不能作为文件名。</translation>
    </message>
    <message>
        <source>Choose a folder for the project.</source>
        <translation>请为项目选择文件夹。</translation>
    </message>
    <message>
        <source>This folder does not exist.</source>
        <translation>该文件夹不存在。</translation>
    </message>
    <message>
        <source>This is not a folder.</source>
        <translation>这不是文件夹。</translation>
    </message>
    <message>
        <source>This folder cannot be written to.</source>
        <translation>无法写入该文件夹。</translation>
    </message>
</context>
<context>
    <name>LibraryXml</name>
    <message>
        <source>Widget library, line %1: &quot;%2&quot; cannot be the type of a widget.</source>
        <translation>控件库第 %1 行：“%2”不能作为控件类型。</translation>
    </message>
</context>
<context>
    <name>NumberExpression</name>
    <message>
        <source>&quot;%1&quot; is not expected here</source>
        <translation>此处不应有“%1”</translation>
    </message>
    <message>
        <source>The result is too large</source>
        <translation>结果过大</translation>
    </message>
    <message>
        <source>Division by zero</source>
        <translation>除数为零</translation>
    </message>
    <message>
        <source>Too many brackets or signs within each other</source>
        <translation>括号或正负号嵌套过多</translation>
    </message>
    <message>
        <source>A closing bracket is missing</source>
        <translation>缺少右括号</translation>
    </message>
    <message>
        <source>A number is missing at the end</source>
        <translation>末尾缺少一个数</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number</source>
        <translation>“%1”不是数字</translation>
    </message>
    <message>
        <source>There is no number named &quot;%1&quot;</source>
        <translation>没有名为“%1”的数</translation>
    </message>
    <message>
        <source>An expression has %1 characters at most</source>
        <translation>表达式最多 %1 个字符</translation>
    </message>
</context>
<context>
    <name>PackageFiles</name>
    <message>
        <source>%1 is not a regular file</source>
        <translation>%1 不是普通文件</translation>
    </message>
    <message>
        <source>%1 could not be kept aside</source>
        <translation>%1 无法暂存</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message>
        <source>The folder %1 could not be made.</source>
        <translation>无法创建文件夹 %1。</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Add %1</source>
        <translation>添加 %1</translation>
    </message>
    <message>
        <source>Change Property %1 %2</source>
        <translation>更改属性 %1 %2</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>删除 %1</translation>
    </message>
    <message>
        <source>Group Item</source>
        <translation>组合对象</translation>
    </message>
    <message>
        <source>Insert %1</source>
        <translation>插入 %1</translation>
    </message>
    <message>
        <source>Order Item</source>
        <translation>排列对象</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Ungroup Item</source>
        <translation>取消组合对象</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1, %2   %3 × %4</source>
        <translation>%1, %2   %3 × %4</translation>
    </message>
    <message>
        <source>Resize Item</source>
        <translation>调整大小</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Rotate Item</source>
        <translation>旋转对象</translation>
    </message>
    <message>
        <source>Bring To Front Selected Items</source>
        <translation>将选中的对象置于顶层</translation>
    </message>
    <message>
        <source>Send To Back Selected Items</source>
        <translation>将选中的对象置于底层</translation>
    </message>
    <message>
        <source>Bring Forward Selected Items</source>
        <translation>将选中的对象上移一层</translation>
    </message>
    <message>
        <source>Send Backward Selected Items</source>
        <translation>将选中的对象下移一层</translation>
    </message>
    <message>
        <source>Group Selected Items</source>
        <translation>组合选中的对象</translation>
    </message>
    <message>
        <source>Ungroup Selected Items</source>
        <translation>取消选中对象的组合</translation>
    </message>
    <message>
        <source>Move Item</source>
        <translation>移动对象</translation>
    </message>
    <message>
        <source>Scale Selected Items</source>
        <translation>缩放所选对象</translation>
    </message>
</context>
<context>
    <name>QtBoolEdit</name>
    <message>
        <source>True</source>
        <translation>是</translation>
    </message>
    <message>
        <source>False</source>
        <translation>否</translation>
    </message>
</context>
<context>
    <name>QtColorPropertyManager</name>
    <message>
        <source>Red</source>
        <translation>红</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>绿</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>蓝</translation>
    </message>
    <message>
        <source>Alpha</source>
        <translation>不透明度</translation>
    </message>
</context>
<context>
    <name>ReplaceStep</name>
    <message>
        <source>Replace in one place</source>
        <translation>替换一处</translation>
    </message>
    <message>
        <source>Replace in %1 places</source>
        <translation>替换 %1 处</translation>
    </message>
</context>
<context>
    <name>ScreenDocuments</name>
    <message>
        <source>There is nothing in it.</source>
        <translation>其中没有内容。</translation>
    </message>
    <message>
        <source>The document has no element %1.</source>
        <translation>文档没有元素 %1。</translation>
    </message>
</context>
<context>
    <name>StepNames</name>
    <message>
        <source>Move %1</source>
        <translation>移动 %1</translation>
    </message>
    <message>
        <source>Move %1 items</source>
        <translation>移动 %1 个对象</translation>
    </message>
    <message>
        <source>Resize %1</source>
        <translation>调整 %1 的大小</translation>
    </message>
    <message>
        <source>Resize %1 items</source>
        <translation>调整 %1 个对象的大小</translation>
    </message>
    <message>
        <source>Turn %1</source>
        <translation>旋转 %1</translation>
    </message>
    <message>
        <source>Turn %1 items</source>
        <translation>旋转 %1 个对象</translation>
    </message>
    <message>
        <source>Bring %1 to the front</source>
        <translation>将 %1 置于最前</translation>
    </message>
    <message>
        <source>Bring %1 items to the front</source>
        <translation>将 %1 个对象置于最前</translation>
    </message>
    <message>
        <source>Send %1 to the back</source>
        <translation>将 %1 置于最后</translation>
    </message>
    <message>
        <source>Send %1 items to the back</source>
        <translation>将 %1 个对象置于最后</translation>
    </message>
    <message>
        <source>Bring %1 forward</source>
        <translation>将 %1 前移一层</translation>
    </message>
    <message>
        <source>Bring %1 items forward</source>
        <translation>将 %1 个对象前移一层</translation>
    </message>
    <message>
        <source>Send %1 backward</source>
        <translation>将 %1 后移一层</translation>
    </message>
    <message>
        <source>Send %1 items backward</source>
        <translation>将 %1 个对象后移一层</translation>
    </message>
    <message>
        <source>Move %1 in the order</source>
        <translation>调整 %1 的次序</translation>
    </message>
    <message>
        <source>Move %1 items in the order</source>
        <translation>调整 %1 个对象的次序</translation>
    </message>
    <message>
        <source>Lock or unlock %1</source>
        <translation>锁定或解锁 %1</translation>
    </message>
    <message>
        <source>Lock or unlock %1 items</source>
        <translation>锁定或解锁 %1 个对象</translation>
    </message>
    <message>
        <source>Delete %1 items</source>
        <translation>删除 %1 个对象</translation>
    </message>
    <message>
        <source>Cut %1 items</source>
        <translation>剪切 %1 个对象</translation>
    </message>
    <message>
        <source>Group %1 items</source>
        <translation>组合 %1 个对象</translation>
    </message>
    <message>
        <source>Rename %1 to %2</source>
        <translation>将 %1 重命名为 %2</translation>
    </message>
    <message>
        <source>Clear %1 of %2</source>
        <translation>清除 %2 的 %1</translation>
    </message>
    <message>
        <source>Set %1 of %2 to %3</source>
        <translation>将 %2 的 %1 设为 %3</translation>
    </message>
</context>
<context>
    <name>ValueText</name>
    <message>
        <source>Not a number</source>
        <translation>不是数字</translation>
    </message>
    <message>
        <source>Less than %1</source>
        <translation>小于 %1</translation>
    </message>
    <message>
        <source>More than %1</source>
        <translation>大于 %1</translation>
    </message>
    <message>
        <source>None of its choices</source>
        <translation>不在可选项中</translation>
    </message>
    <message>
        <source>Neither true nor false</source>
        <translation>既不是 true 也不是 false</translation>
    </message>
    <message>
        <source>Not a colour</source>
        <translation>不是颜色</translation>
    </message>
    <message>
        <source>Not a time</source>
        <translation>不是时间</translation>
    </message>
    <message>
        <source>Has only one line</source>
        <translation>只有一行</translation>
    </message>
</context>
<context>
    <name>WidgetLibrary</name>
    <message>
        <source>A row of keys, their texts separated by commas</source>
        <translation>一排按键，文字以逗号分隔</translation>
    </message>
    <message>
        <source>Analogue clock</source>
        <translation>指针时钟</translation>
    </message>
    <message>
        <source>Arc from a measured to a wanted value, with a knob at the wanted one</source>
        <translation>从测量值到目标值的圆弧，目标值处有旋钮</translation>
    </message>
    <message>
        <source>Arc gauge</source>
        <translation>弧形仪表</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>箭头</translation>
    </message>
    <message>
        <source>Arrow from the first to the second point</source>
        <translation>从第一点指向第二点的箭头</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>Badge</source>
        <translation>徽标</translation>
    </message>
    <message>
        <source>Bar chart</source>
        <translation>柱状图</translation>
    </message>
    <message>
        <source>Bar that fills, upwards when it is higher than wide</source>
        <translation>逐渐填满的条；高大于宽时向上填充</translation>
    </message>
    <message>
        <source>Bars of a radio signal</source>
        <translation>无线信号强度条</translation>
    </message>
    <message>
        <source>Basic Shapes</source>
        <translation>基本形状</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>电池</translation>
    </message>
    <message>
        <source>Battery with its charge; turns to the warning colour when low</source>
        <translation>显示电量的电池；电量低时变为警告色</translation>
    </message>
    <message>
        <source>Bean</source>
        <translation>咖啡豆</translation>
    </message>
    <message>
        <source>Bell</source>
        <translation>铃铛</translation>
    </message>
    <message>
        <source>Bilinear</source>
        <translation>双线性</translation>
    </message>
    <message>
        <source>Bitmap</source>
        <translation>位图</translation>
    </message>
    <message>
        <source>Bolt</source>
        <translation>闪电</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>两端</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>底部</translation>
    </message>
    <message>
        <source>Box to tick, with a text</source>
        <translation>带文字的勾选框</translation>
    </message>
    <message>
        <source>Bulb</source>
        <translation>灯泡</translation>
    </message>
    <message>
        <source>Button</source>
        <translation>按钮</translation>
    </message>
    <message>
        <source>Button whose face is a converted image</source>
        <translation>以转换后的图像为外观的按钮</translation>
    </message>
    <message>
        <source>Button with a text, a symbol or both</source>
        <translation>带文字、符号或两者的按钮</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>日历</translation>
    </message>
    <message>
        <source>Car</source>
        <translation>汽车</translation>
    </message>
    <message>
        <source>Card</source>
        <translation>卡片</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>居中</translation>
    </message>
    <message>
        <source>Chart</source>
        <translation>图表</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>勾号</translation>
    </message>
    <message>
        <source>Checkbox</source>
        <translation>复选框</translation>
    </message>
    <message>
        <source>Choice among a few options side by side</source>
        <translation>在并排的几个选项中选择</translation>
    </message>
    <message>
        <source>Chosen entry of a list that opens</source>
        <translation>展开列表中选定的条目</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>圆</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>时钟</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Cloud</source>
        <translation>云</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Contactless</source>
        <translation>非接触</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>控件</translation>
    </message>
    <message>
        <source>Converted image in one of the chip&apos;s formats</source>
        <translation>转换为芯片格式之一的图像</translation>
    </message>
    <message>
        <source>Cup</source>
        <translation>杯子</translation>
    </message>
    <message>
        <source>Decoration</source>
        <translation>装饰</translation>
    </message>
    <message>
        <source>Dial</source>
        <translation>旋钮</translation>
    </message>
    <message>
        <source>Digital clock</source>
        <translation>数字时钟</translation>
    </message>
    <message>
        <source>Disc sized by its point size, in sixteenths of a pixel</source>
        <translation>圆盘，大小由点大小决定（单位为十六分之一像素）</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>向下</translation>
    </message>
    <message>
        <source>Drop</source>
        <translation>水滴</translation>
    </message>
    <message>
        <source>Drop-down</source>
        <translation>下拉列表</translation>
    </message>
    <message>
        <source>End</source>
        <translation>末端</translation>
    </message>
    <message>
        <source>Espresso</source>
        <translation>意式浓缩咖啡</translation>
    </message>
    <message>
        <source>Euro</source>
        <translation>欧元</translation>
    </message>
    <message>
        <source>Fan</source>
        <translation>风扇</translation>
    </message>
    <message>
        <source>Field for a text, with a hint while it is empty</source>
        <translation>文本输入框，为空时显示提示</translation>
    </message>
    <message>
        <source>Figures of seven segments, as large as the box allows</source>
        <translation>七段数码，大小随边框而定</translation>
    </message>
    <message>
        <source>Filled</source>
        <translation>填充</translation>
    </message>
    <message>
        <source>Filled rectangle with rounded corners and a border</source>
        <translation>带圆角和边框的填充矩形</translation>
    </message>
    <message>
        <source>Filled shape through points; Shift + click adds a point</source>
        <translation>经过各点的填充形状；Shift + 单击添加一点</translation>
    </message>
    <message>
        <source>Film</source>
        <translation>影片</translation>
    </message>
    <message>
        <source>Flame</source>
        <translation>火焰</translation>
    </message>
    <message>
        <source>Gauge</source>
        <translation>仪表盘</translation>
    </message>
    <message>
        <source>Glass</source>
        <translation>玻璃杯</translation>
    </message>
    <message>
        <source>Gradient</source>
        <translation>渐变</translation>
    </message>
    <message>
        <source>Heart</source>
        <translation>心形</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>主页</translation>
    </message>
    <message>
        <source>Horizontal slider</source>
        <translation>水平滑块</translation>
    </message>
    <message>
        <source>Hours</source>
        <translation>小时</translation>
    </message>
    <message>
        <source>Image button</source>
        <translation>图像按钮</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>图像</translation>
    </message>
    <message>
        <source>Indicators</source>
        <translation>指示器</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>Inside</source>
        <translation>内侧</translation>
    </message>
    <message>
        <source>Key row</source>
        <translation>按键行</translation>
    </message>
    <message>
        <source>Keypad</source>
        <translation>键盘</translation>
    </message>
    <message>
        <source>Knob to turn, with its value around it</source>
        <translation>可旋转的旋钮，数值环绕四周</translation>
    </message>
    <message>
        <source>LED</source>
        <translation>LED</translation>
    </message>
    <message>
        <source>Leaf</source>
        <translation>叶子</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>Level in segments; the last ones warn</source>
        <translation>分段的电平；最后几段为警告</translation>
    </message>
    <message>
        <source>Level meter</source>
        <translation>电平表</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>直线</translation>
    </message>
    <message>
        <source>Line between two points</source>
        <translation>两点之间的直线</translation>
    </message>
    <message>
        <source>Line chart</source>
        <translation>折线图</translation>
    </message>
    <message>
        <source>Line drawing from a fixed set</source>
        <translation>固定集合中的线条图形</translation>
    </message>
    <message>
        <source>Line through points; Shift + click adds a point</source>
        <translation>经过各点的线；Shift + 单击添加一点</translation>
    </message>
    <message>
        <source>Line through the values of a list</source>
        <translation>经过列表各数值的线</translation>
    </message>
    <message>
        <source>List</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>锁</translation>
    </message>
    <message>
        <source>Media</source>
        <translation>媒体</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>菜单</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中间</translation>
    </message>
    <message>
        <source>Minus</source>
        <translation>减号</translation>
    </message>
    <message>
        <source>Moon</source>
        <translation>月亮</translation>
    </message>
    <message>
        <source>Nearest</source>
        <translation>最近邻</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一个</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>数字</translation>
    </message>
    <message>
        <source>Number with a fixed count of decimals and a unit</source>
        <translation>小数位数固定并带单位的数字</translation>
    </message>
    <message>
        <source>One bar for each value of a list</source>
        <translation>列表中每个数值一根柱</translation>
    </message>
    <message>
        <source>One choice of several, with a text</source>
        <translation>多选一，带文字</translation>
    </message>
    <message>
        <source>One line of text, cut with an ellipsis when it is too long</source>
        <translation>单行文字，过长时以省略号截断</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>轮廓</translation>
    </message>
    <message>
        <source>Outside</source>
        <translation>外侧</translation>
    </message>
    <message>
        <source>Page dots</source>
        <translation>页面圆点</translation>
    </message>
    <message>
        <source>Panel that holds other widgets, with a title and a symbol</source>
        <translation>容纳其他部件的面板，带标题和符号</translation>
    </message>
    <message>
        <source>Paragraph</source>
        <translation>段落</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Person</source>
        <translation>人物</translation>
    </message>
    <message>
        <source>Photo or film that the chip decodes itself (JPEG, PNG, AVI)</source>
        <translation>由芯片自行解码的照片或影片（JPEG、PNG、AVI）</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>图钉</translation>
    </message>
    <message>
        <source>Plain</source>
        <translation>朴素</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>Plug</source>
        <translation>插头</translation>
    </message>
    <message>
        <source>Plus</source>
        <translation>加号</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>多边形</translation>
    </message>
    <message>
        <source>Polyline</source>
        <translation>折线</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>电源</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>上一个</translation>
    </message>
    <message>
        <source>Progress bar</source>
        <translation>进度条</translation>
    </message>
    <message>
        <source>Quarters</source>
        <translation>刻钟</translation>
    </message>
    <message>
        <source>Radio button</source>
        <translation>单选按钮</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>矩形</translation>
    </message>
    <message>
        <source>Rectangle filled from one colour to another</source>
        <translation>由一种颜色过渡到另一种颜色的矩形</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <source>Ring</source>
        <translation>圆环</translation>
    </message>
    <message>
        <source>Ring or arc around a centre; the angle turns its start</source>
        <translation>围绕中心的圆环或圆弧；角度决定其起点</translation>
    </message>
    <message>
        <source>Round gauge with ticks, figures and a needle</source>
        <translation>带刻度、数字和指针的圆形仪表</translation>
    </message>
    <message>
        <source>Rows of a text and its detail: commas separate the two, semicolons rows</source>
        <translation>由文字及其说明组成的行：逗号分隔两者，分号分隔各行</translation>
    </message>
    <message>
        <source>Rows of keys: commas separate keys, semicolons rows</source>
        <translation>多排按键：逗号分隔按键，分号分隔各排</translation>
    </message>
    <message>
        <source>Scroll bar</source>
        <translation>滚动条</translation>
    </message>
    <message>
        <source>Scroll bar, upright when it is higher than wide</source>
        <translation>滚动条；高大于宽时为竖直</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Segments</source>
        <translation>分段选择</translation>
    </message>
    <message>
        <source>Separator</source>
        <translation>分隔线</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Seven segments</source>
        <translation>七段数码</translation>
    </message>
    <message>
        <source>Short status on a pill</source>
        <translation>胶囊形的简短状态</translation>
    </message>
    <message>
        <source>Signal lamp, sized by its point size in sixteenths of a pixel</source>
        <translation>信号灯，大小由点大小决定（单位为十六分之一像素）</translation>
    </message>
    <message>
        <source>Signal strength</source>
        <translation>信号强度</translation>
    </message>
    <message>
        <source>Slider</source>
        <translation>滑块</translation>
    </message>
    <message>
        <source>Snowflake</source>
        <translation>雪花</translation>
    </message>
    <message>
        <source>Spinner</source>
        <translation>等待圈</translation>
    </message>
    <message>
        <source>Star</source>
        <translation>星形</translation>
    </message>
    <message>
        <source>Stepper</source>
        <translation>步进器</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Sun</source>
        <translation>太阳</translation>
    </message>
    <message>
        <source>Switch whose height follows its font</source>
        <translation>高度随字体变化的开关</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>符号</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>表格</translation>
    </message>
    <message>
        <source>Table with a head row: commas separate columns, semicolons rows</source>
        <translation>带表头的表格：逗号分隔列，分号分隔行</translation>
    </message>
    <message>
        <source>Target dial</source>
        <translation>目标刻度盘</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文本</translation>
    </message>
    <message>
        <source>Text field</source>
        <translation>文本框</translation>
    </message>
    <message>
        <source>Text that breaks into lines</source>
        <translation>自动换行的文字</translation>
    </message>
    <message>
        <source>Thermometer</source>
        <translation>温度计</translation>
    </message>
    <message>
        <source>Thin line, upright when it is higher than wide</source>
        <translation>细线；高大于宽时为竖直</translation>
    </message>
    <message>
        <source>Time of day in figures</source>
        <translation>以数字显示的时间</translation>
    </message>
    <message>
        <source>Timer</source>
        <translation>定时器</translation>
    </message>
    <message>
        <source>Toggle</source>
        <translation>切换开关</translation>
    </message>
    <message>
        <source>Tonal</source>
        <translation>色调</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>顶部</translation>
    </message>
    <message>
        <source>Turning arc while something is under way; the angle is its phase</source>
        <translation>进行中时旋转的圆弧；角度为其相位</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>向上</translation>
    </message>
    <message>
        <source>Value as an arc, with its figure in the middle</source>
        <translation>以圆弧表示的数值，中间为数字</translation>
    </message>
    <message>
        <source>Value between a minus and a plus key</source>
        <translation>位于减号键与加号键之间的数值</translation>
    </message>
    <message>
        <source>Vertical slider</source>
        <translation>垂直滑块</translation>
    </message>
    <message>
        <source>Vertical slider, largest value on top</source>
        <translation>垂直滑块，最大值在上</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Which page of several is shown</source>
        <translation>显示多页中的哪一页</translation>
    </message>
    <message>
        <source>12 hours</source>
        <translation>12 小时制</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>对齐</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>Arc colour</source>
        <translation>弧线颜色</translation>
    </message>
    <message>
        <source>Area opacity</source>
        <translation>区域不透明度</translation>
    </message>
    <message>
        <source>Badge colour</source>
        <translation>徽章颜色</translation>
    </message>
    <message>
        <source>Bar colour</source>
        <translation>柱颜色</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>条数</translation>
    </message>
    <message>
        <source>Border colour</source>
        <translation>边框颜色</translation>
    </message>
    <message>
        <source>Border width</source>
        <translation>边框宽度</translation>
    </message>
    <message>
        <source>Caption</source>
        <translation>说明文字</translation>
    </message>
    <message>
        <source>Caption colour</source>
        <translation>说明文字颜色</translation>
    </message>
    <message>
        <source>Caption font</source>
        <translation>说明文字字体</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>单元格</translation>
    </message>
    <message>
        <source>Charging</source>
        <translation>正在充电</translation>
    </message>
    <message>
        <source>Checked</source>
        <translation>已选中</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>闭合</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>列</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>Corner radius</source>
        <translation>圆角半径</translation>
    </message>
    <message>
        <source>Danger colour</source>
        <translation>危险颜色</translation>
    </message>
    <message>
        <source>Danger from</source>
        <translation>危险起始值</translation>
    </message>
    <message>
        <source>Decimals</source>
        <translation>小数位数</translation>
    </message>
    <message>
        <source>Detail colour</source>
        <translation>详情颜色</translation>
    </message>
    <message>
        <source>Detail font</source>
        <translation>详情字体</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>Dot colour</source>
        <translation>圆点颜色</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>End X</source>
        <translation>终点 X</translation>
    </message>
    <message>
        <source>End Y</source>
        <translation>终点 Y</translation>
    </message>
    <message>
        <source>Ends</source>
        <translation>端点</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>条目</translation>
    </message>
    <message>
        <source>Face colour</source>
        <translation>表盘颜色</translation>
    </message>
    <message>
        <source>Figure colour</source>
        <translation>数字颜色</translation>
    </message>
    <message>
        <source>Figures</source>
        <translation>数字</translation>
    </message>
    <message>
        <source>Fill colour</source>
        <translation>填充颜色</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>滤波</translation>
    </message>
    <message>
        <source>First colour</source>
        <translation>起始颜色</translation>
    </message>
    <message>
        <source>Focus colour</source>
        <translation>焦点颜色</translation>
    </message>
    <message>
        <source>Focused</source>
        <translation>获得焦点</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>字体</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>Gap</source>
        <translation>间隙</translation>
    </message>
    <message>
        <source>Glow</source>
        <translation>发光</translation>
    </message>
    <message>
        <source>Grid colour</source>
        <translation>网格颜色</translation>
    </message>
    <message>
        <source>Grid lines</source>
        <translation>网格线</translation>
    </message>
    <message>
        <source>Hand colour</source>
        <translation>指针颜色</translation>
    </message>
    <message>
        <source>Head colour</source>
        <translation>表头颜色</translation>
    </message>
    <message>
        <source>Head font</source>
        <translation>表头字体</translation>
    </message>
    <message>
        <source>Head size</source>
        <translation>箭头大小</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>Hint</source>
        <translation>提示文字</translation>
    </message>
    <message>
        <source>Hint colour</source>
        <translation>提示文字颜色</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Key colour</source>
        <translation>按键颜色</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>按键</translation>
    </message>
    <message>
        <source>Knob colour</source>
        <translation>旋钮颜色</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>标签</translation>
    </message>
    <message>
        <source>Last colour</source>
        <translation>结束颜色</translation>
    </message>
    <message>
        <source>Line colour</source>
        <translation>线条颜色</translation>
    </message>
    <message>
        <source>Line height</source>
        <translation>行高</translation>
    </message>
    <message>
        <source>Line spacing</source>
        <translation>行距</translation>
    </message>
    <message>
        <source>Lit</source>
        <translation>点亮</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>Low below</source>
        <translation>低值界限</translation>
    </message>
    <message>
        <source>Low colour</source>
        <translation>低值颜色</translation>
    </message>
    <message>
        <source>Major ticks</source>
        <translation>主刻度</translation>
    </message>
    <message>
        <source>Mark colour</source>
        <translation>标记颜色</translation>
    </message>
    <message>
        <source>Mark last value</source>
        <translation>标记最后的值</translation>
    </message>
    <message>
        <source>Marked bar</source>
        <translation>标记的柱</translation>
    </message>
    <message>
        <source>Marked colour</source>
        <translation>标记的颜色</translation>
    </message>
    <message>
        <source>Marks</source>
        <translation>刻度标记</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>最大值</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>最小值</translation>
    </message>
    <message>
        <source>Minor ticks</source>
        <translation>次刻度</translation>
    </message>
    <message>
        <source>Monochrome</source>
        <translation>单色</translation>
    </message>
    <message>
        <source>Most lines</source>
        <translation>最多行数</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Needle colour</source>
        <translation>指针颜色</translation>
    </message>
    <message>
        <source>Off colour</source>
        <translation>关闭时颜色</translation>
    </message>
    <message>
        <source>On colour</source>
        <translation>开启时颜色</translation>
    </message>
    <message>
        <source>Is open</source>
        <translation>已展开</translation>
    </message>
    <message>
        <source>Open colour</source>
        <translation>展开时颜色</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Outline colour</source>
        <translation>轮廓颜色</translation>
    </message>
    <message>
        <source>Padding</source>
        <translation>内边距</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>当前页</translation>
    </message>
    <message>
        <source>Page colour</source>
        <translation>当前页颜色</translation>
    </message>
    <message>
        <source>Page size</source>
        <translation>每页大小</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>页数</translation>
    </message>
    <message>
        <source>Peak</source>
        <translation>峰值</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Picture file</source>
        <translation>图片文件</translation>
    </message>
    <message>
        <source>Picture folder</source>
        <translation>图片文件夹</translation>
    </message>
    <message>
        <source>Picture height</source>
        <translation>图片高度</translation>
    </message>
    <message>
        <source>Picture width</source>
        <translation>图片宽度</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>点</translation>
    </message>
    <message>
        <source>Prefix</source>
        <translation>前缀</translation>
    </message>
    <message>
        <source>Pressed</source>
        <translation>按下</translation>
    </message>
    <message>
        <source>Pressed colour</source>
        <translation>按下时颜色</translation>
    </message>
    <message>
        <source>Pressed key</source>
        <translation>按下的键</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>半径</translation>
    </message>
    <message>
        <source>Rim colour</source>
        <translation>边缘颜色</translation>
    </message>
    <message>
        <source>Ring colour</source>
        <translation>圆环颜色</translation>
    </message>
    <message>
        <source>Rounded ends</source>
        <translation>圆头端点</translation>
    </message>
    <message>
        <source>Row height</source>
        <translation>行高</translation>
    </message>
    <message>
        <source>Second hand colour</source>
        <translation>秒针颜色</translation>
    </message>
    <message>
        <source>Seconds</source>
        <translation>显示秒</translation>
    </message>
    <message>
        <source>Selected</source>
        <translation>选中项</translation>
    </message>
    <message>
        <source>Selected colour</source>
        <translation>选中颜色</translation>
    </message>
    <message>
        <source>Selected text colour</source>
        <translation>选中文字颜色</translation>
    </message>
    <message>
        <source>Show unlit segments</source>
        <translation>显示未点亮的段</translation>
    </message>
    <message>
        <source>Show value</source>
        <translation>显示数值</translation>
    </message>
    <message>
        <source>Start angle</source>
        <translation>起始角度</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>不透明度</translation>
    </message>
    <message>
        <source>Stripe colour</source>
        <translation>条纹颜色</translation>
    </message>
    <message>
        <source>Striped</source>
        <translation>条纹</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>样式</translation>
    </message>
    <message>
        <source>Suffix</source>
        <translation>后缀</translation>
    </message>
    <message>
        <source>Sweep</source>
        <translation>扫过角度</translation>
    </message>
    <message>
        <source>Symbol colour</source>
        <translation>符号颜色</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>目标值</translation>
    </message>
    <message>
        <source>Text colour</source>
        <translation>文字颜色</translation>
    </message>
    <message>
        <source>Text when off</source>
        <translation>关闭时文字</translation>
    </message>
    <message>
        <source>Text when on</source>
        <translation>开启时文字</translation>
    </message>
    <message>
        <source>Thickness</source>
        <translation>粗细</translation>
    </message>
    <message>
        <source>Thumb colour</source>
        <translation>滑块颜色</translation>
    </message>
    <message>
        <source>Tick colour</source>
        <translation>刻度颜色</translation>
    </message>
    <message>
        <source>Ticks</source>
        <translation>刻度数</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Tint</source>
        <translation>着色</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>标题</translation>
    </message>
    <message>
        <source>Title colour</source>
        <translation>标题颜色</translation>
    </message>
    <message>
        <source>Track colour</source>
        <translation>轨道颜色</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>单位</translation>
    </message>
    <message>
        <source>Unit colour</source>
        <translation>单位颜色</translation>
    </message>
    <message>
        <source>Unit font</source>
        <translation>单位字体</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>数值</translation>
    </message>
    <message>
        <source>Value colour</source>
        <translation>数值颜色</translation>
    </message>
    <message>
        <source>Value font</source>
        <translation>数值字体</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>数据</translation>
    </message>
    <message>
        <source>Vertical alignment</source>
        <translation>垂直对齐</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>视频</translation>
    </message>
    <message>
        <source>Warning colour</source>
        <translation>警告颜色</translation>
    </message>
    <message>
        <source>Warning from</source>
        <translation>警告起始值</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Wifi</source>
        <translation>无线网络</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>窗</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Zone colour</source>
        <translation>区域颜色</translation>
    </message>
    <message>
        <source>Zone from</source>
        <translation>区域起始值</translation>
    </message>
</context>
<context>
    <name>CCompareActions</name>
    <message>
        <source>The version that you saved last</source>
        <translation>您上次保存的版本</translation>
    </message>
    <message>
        <source>The version that was saved automatically</source>
        <translation>自动保存的版本</translation>
    </message>
    <message>
        <source>The last saved version</source>
        <translation>上次保存的版本</translation>
    </message>
    <message>
        <source>Compare With</source>
        <translation>比较对象</translation>
    </message>
    <message>
        <source>Projects (*.nyx *.xml);;All files (*)</source>
        <translation>项目 (*.nyx *.xml);;所有文件 (*)</translation>
    </message>
    <message>
        <source>The project was not compared: %1</source>
        <translation>未能比较项目：%1</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>比较</translation>
    </message>
    <message>
        <source>Compare &amp;With...</source>
        <translation>比较(&amp;W)...</translation>
    </message>
    <message>
        <source>Show what has changed since an earlier version</source>
        <translation>显示自早期版本以来的更改</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1，%2</translation>
    </message>
    <message>
        <source>A backup that was left beside the file</source>
        <translation>文件旁遗留的备份</translation>
    </message>
    <message>
        <source>The recovery copy of this project</source>
        <translation>此项目的恢复副本</translation>
    </message>
    <message>
        <source>Work that was left: %1, %2</source>
        <translation>遗留的工作：%1，%2</translation>
    </message>
    <message>
        <source>That version is there no more.</source>
        <translation>该版本已不存在。</translation>
    </message>
</context>
<context>
    <name>CCompareView</name>
    <message>
        <source>Choose File &gt; Compare With... to see what has changed.</source>
        <translation>选择“文件 &gt; 比较...”查看更改。</translation>
    </message>
    <message>
        <source>Nothing has changed since: %1</source>
        <translation>自此版本以来没有更改：%1</translation>
    </message>
    <message>
        <source>Changed since: %1</source>
        <translation>自此版本以来的更改：%1</translation>
    </message>
    <message>
        <source>There is no picture here yet, or none on this side.</source>
        <translation>此处尚无图像，或此版本没有图像。</translation>
    </message>
    <message>
        <source>Not compared: %1</source>
        <translation>未比较：%1</translation>
    </message>
    <message>
        <source>Comparing...</source>
        <translation>正在比较...</translation>
    </message>
</context>
<context>
    <name>CChangeTexts</name>
    <message>
        <source>Group</source>
        <translation>组</translation>
    </message>
    <message>
        <source>Font %1</source>
        <translation>字体 %1</translation>
    </message>
    <message>
        <source>Guides</source>
        <translation>参考线</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>已锁定</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>已隐藏</translation>
    </message>
</context>
<context>
    <name>CChangesModel</name>
    <message>
        <source>Project</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Page added: %1</source>
        <translation>已添加页面：%1</translation>
    </message>
    <message>
        <source>Page removed: %1</source>
        <translation>已删除页面：%1</translation>
    </message>
    <message>
        <source>Page changed: %1</source>
        <translation>已更改页面：%1</translation>
    </message>
    <message>
        <source>In another order</source>
        <translation>顺序不同</translation>
    </message>
    <message>
        <source>Picture changed: %1</source>
        <translation>图像已更改：%1</translation>
    </message>
    <message>
        <source>Pixels: %1</source>
        <translation>像素：%1</translation>
    </message>
    <message>
        <source>Added: %1</source>
        <translation>已添加：%1</translation>
    </message>
    <message>
        <source>Removed: %1</source>
        <translation>已删除：%1</translation>
    </message>
    <message>
        <source>Moved: %1</source>
        <translation>已移动：%1</translation>
    </message>
    <message>
        <source>Changed: %1</source>
        <translation>已更改：%1</translation>
    </message>
    <message>
        <source>From another page: %1</source>
        <translation>来自其他页面：%1</translation>
    </message>
    <message>
        <source>In another group</source>
        <translation>在其他组中</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>更改</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>之前</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>现在</translation>
    </message>
</context>
<context>
    <name>CComparedPictures</name>
    <message>
        <source>Difference</source>
        <translation>差异</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>之前</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>现在</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>闪烁</translation>
    </message>
    <message>
        <source>Swipe</source>
        <translation>滑动</translation>
    </message>
    <message>
        <source>How the page is shown before and now</source>
        <translation>页面前后对比的显示方式</translation>
    </message>
    <message>
        <source>Side by side</source>
        <translation>并排</translation>
    </message>
    <message>
        <source>Zoom: %1 %</source>
        <translation>缩放：%1 %</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>适合</translation>
    </message>
    <message>
        <source>Show all of the page (0)</source>
        <translation>显示整个页面 (0)</translation>
    </message>
    <message>
        <source>100 %</source>
        <translation>100 %</translation>
    </message>
    <message>
        <source>Show a pixel for a pixel (1); Ctrl and the wheel, + and - zoom</source>
        <translation>逐像素显示 (1)；Ctrl 加滚轮、+ 和 - 可缩放</translation>
    </message>
</context>
<context>
    <name>CComparison</name>
    <message>
        <source>No project is open.</source>
        <translation>没有打开的项目。</translation>
    </message>
    <message>
        <source>There are no pictures: the earlier version is for another chip (%1).</source>
        <translation>没有图像：早期版本用于其他芯片 (%1)。</translation>
    </message>
    <message>
        <source>There are no pictures: the earlier version has another size (%1 x %2).</source>
        <translation>没有图像：早期版本的尺寸不同 (%1 x %2)。</translation>
    </message>
</context>
<context>
    <name>CGitVersions</name>
    <message>
        <source>git did not give the file in that version.</source>
        <translation>git 未能提供该版本的文件。</translation>
    </message>
    <message>
        <source>git's answer is too large.</source>
        <translation>git 的回答过大。</translation>
    </message>
    <message>
        <source>git did not answer within %1 seconds.</source>
        <translation>git 未在 %1 秒内回答。</translation>
    </message>
    <message>
        <source>git could not be started.</source>
        <translation>无法启动 git。</translation>
    </message>
    <message>
        <source>git knows no revision &quot;%1&quot;.</source>
        <translation>git 中没有修订版本“%1”。</translation>
    </message>
</context>
<context>
    <name>CVersionDialog</name>
    <message>
        <source>Compare With</source>
        <translation>比较对象</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>比较</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>The open project is compared with:</source>
        <translation>将打开的项目与以下版本比较：</translation>
    </message>
    <message>
        <source>A file...</source>
        <translation>文件...</translation>
    </message>
    <message>
        <source>Looking for versions in git...</source>
        <translation>正在 git 中查找版本...</translation>
    </message>
    <message>
        <source>git keeps no version of this project.</source>
        <translation>git 中没有此项目的版本。</translation>
    </message>
    <message>
        <source>%1, in git: %2</source>
        <translation>%1，git：%2</translation>
    </message>
    <message>
        <source>git &amp;revision:</source>
        <translation>git 修订版本(&amp;R)：</translation>
    </message>
    <message>
        <source>A branch, a tag, a hash, HEAD~3...</source>
        <translation>分支、标签、哈希、HEAD~3...</translation>
    </message>
    <message>
        <source>git is asked...</source>
        <translation>正在询问 git...</translation>
    </message>
</context>
<context>
    <name>CBudgetActions</name>
    <message>
        <source>Budget</source>
        <translation>预算</translation>
    </message>
</context>
<context>
    <name>CBudgetView</name>
    <message>
        <source>No project is open.</source>
        <translation>没有打开的项目。</translation>
    </message>
    <message>
        <source>The project has no pages.</source>
        <translation>项目没有页面。</translation>
    </message>
    <message>
        <source>Measuring...</source>
        <translation>正在测量…</translation>
    </message>
    <message>
        <source>Project (fullest page)</source>
        <translation>项目（占用最多的页面）</translation>
    </message>
    <message>
        <source>Each page is loaded by itself, so the fullest one decides. All pictures and fonts of the project together take %1 bytes.</source>
        <translation>每个页面单独加载，因此以占用最多的页面为准。项目的全部图片和字体共占用 %1 字节。</translation>
    </message>
    <message>
        <source>RAM_G: %1
RAM_DL: %2</source>
        <translation>RAM_G：%1
RAM_DL：%2</translation>
    </message>
    <message>
        <source>Used by: %1</source>
        <translation>使用者：%1</translation>
    </message>
    <message>
        <source>(gaps between them)</source>
        <translation>（之间的空隙）</translation>
    </message>
    <message>
        <source>(the page itself)</source>
        <translation>（页面本身）</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>%1 glyphs</source>
        <translation>%1 个字形</translation>
    </message>
    <message>
        <source>RAM_G, bytes</source>
        <translation>RAM_G（字节）</translation>
    </message>
    <message>
        <source>RAM_DL, bytes</source>
        <translation>RAM_DL（字节）</translation>
    </message>
    <message>
        <source>Picture or font</source>
        <translation>图片或字体</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>Pixels</source>
        <translation>像素</translation>
    </message>
    <message>
        <source>Used by</source>
        <translation>使用者</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>字节</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>占比</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>What If</source>
        <translation>假设分析</translation>
    </message>
    <message>
        <source>Pictures and Fonts</source>
        <translation>图片和字体</translation>
    </message>
    <message>
        <source>Items</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>What each item adds to the display list of its page</source>
        <translation>每个项在其页面的显示列表中所占的部分</translation>
    </message>
    <message>
        <source>Fit into Budget</source>
        <translation>适应预算</translation>
    </message>
</context>
<context>
    <name>CMemoryBar</name>
    <message>
        <source>%1 of %2 (%3)</source>
        <translation>%1 / %2 (%3)</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
</context>
<context>
    <name>CWhatIfView</name>
    <message>
        <source>%1, now %2</source>
        <translation>%1，当前为 %2</translation>
    </message>
    <message>
        <source>not possible</source>
        <translation>无法转换</translation>
    </message>
    <message>
        <source>An item that shows the image is locked.</source>
        <translation>显示此图片的某个对象已锁定。</translation>
    </message>
    <message>
        <source>Choose a picture in the first table.</source>
        <translation>请在第一个表格中选择一张图片。</translation>
    </message>
    <message>
        <source>This one cannot be made in another format: it is no image of an item, or the file that it was made of is gone.</source>
        <translation>它无法转换为其他格式：它不是某个对象的图片，或者生成它的文件已不存在。</translation>
    </message>
    <message>
        <source>Left the original, right the picture as the chip shows it. Wheel, + and - zoom both, a drag and the arrow keys move them.</source>
        <translation>左为原图，右为芯片显示的图片。滚轮、+ 和 - 同时缩放两者，拖动或方向键移动它们。</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>字节</translation>
    </message>
    <message>
        <source>SSIM</source>
        <translation>SSIM</translation>
    </message>
    <message>
        <source>&amp;Use This Format</source>
        <translation>使用此格式(&amp;U)</translation>
    </message>
</context>
<context>
    <name>CFormatAdoption</name>
    <message>
        <source>Nothing was changed: %1 shows the image and is locked.</source>
        <translation>未作任何更改：%1 显示此图片且已锁定。</translation>
    </message>
    <message>
        <source>Nothing was changed: the image of %1 could not be taken in the format %2.</source>
        <translation>未作任何更改：%1 的图片无法以格式 %2 采用。</translation>
    </message>
    <message>
        <source>Converting the image...</source>
        <translation>正在转换图片...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Change Image Format</source>
        <translation>更改图片格式</translation>
    </message>
</context>
<context>
    <name>CFormatFitView</name>
    <message>
        <source>Trying all pictures in all formats of the chip...</source>
        <translation>正在以芯片的所有格式尝试所有图片...</translation>
    </message>
    <message>
        <source>Tries all pictures of the project in every format of the chip and proposes those in which every page fits with the least visible loss.</source>
        <translation>以芯片的每种格式尝试项目的所有图片，并建议可见损失最小且每个页面都能容纳的格式。</translation>
    </message>
    <message>
        <source>Every page fits as it is, and no other formats are better.</source>
        <translation>每个页面现在都能容纳，没有更好的格式。</translation>
    </message>
    <message>
        <source>Every page fits as it is. What is listed is as good or better and fits too; what would grow is not ticked.</source>
        <translation>每个页面现在都能容纳。列出的格式同样好或更好，也能容纳；会变大的未勾选。</translation>
    </message>
    <message>
        <source>With all of these formats every page fits, with the least visible loss.</source>
        <translation>全部采用这些格式后，每个页面都能容纳，且可见损失最小。</translation>
    </message>
    <message>
        <source>No formats make every page fit. What is listed comes closest.</source>
        <translation>没有任何格式能使每个页面都容纳。列出的最为接近。</translation>
    </message>
    <message>
        <source>Locked or without the file it was made of: %1.</source>
        <translation>已锁定或缺少源文件：%1。</translation>
    </message>
    <message>
        <source>With what is ticked the fullest page is %1: %2.</source>
        <translation>采用勾选的格式后，占用最多的页面是 %1：%2。</translation>
    </message>
    <message>
        <source>With what is ticked the fullest page is %1: %2, %3 bytes too many.</source>
        <translation>采用勾选的格式后，占用最多的页面是 %1：%2，超出 %3 字节。</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>Proposed</source>
        <translation>建议</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>字节</translation>
    </message>
    <message>
        <source>Then</source>
        <translation>之后</translation>
    </message>
    <message>
        <source>SSIM</source>
        <translation>SSIM</translation>
    </message>
    <message>
        <source>Find F&amp;ormats</source>
        <translation>查找格式(&amp;O)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>&amp;Use Ticked Formats</source>
        <translation>使用勾选的格式(&amp;U)</translation>
    </message>
    <message>
        <source>Could not be tried: %1.</source>
        <translation>无法尝试：%1。</translation>
    </message>
</context>
<context>
    <name>ErrorCells</name>
    <message>
        <source>PSNR, dB</source>
        <translation>PSNR (dB)</translation>
    </message>
    <message>
        <source>equal</source>
        <translation>相同</translation>
    </message>
    <message>
        <source>PSNR: peak signal-to-noise ratio over red, green and blue, in dB; more is better.
SSIM: mean structural similarity of the luminance, 1 for no difference (Wang, Bovik, Sheikh, Simoncelli, 2004).</source>
        <translation>PSNR：红、绿、蓝的峰值信噪比，单位 dB，越大越好。
SSIM：亮度的平均结构相似度，1 表示没有差别（Wang、Bovik、Sheikh、Simoncelli，2004）。</translation>
    </message>
</context>
<context>
    <name>CCheckActions</name>
    <message>
        <source>Checks</source>
        <translation>检查</translation>
    </message>
    <message>
        <source>Checks (%1)</source>
        <translation>检查 (%1)</translation>
    </message>
    <message>
        <source>Next &amp;Finding</source>
        <translation>下一个问题(&amp;F)</translation>
    </message>
    <message>
        <source>Go to the next finding of the checks</source>
        <translation>转到检查发现的下一个问题</translation>
    </message>
    <message>
        <source>Pre&amp;vious Finding</source>
        <translation>上一个问题(&amp;V)</translation>
    </message>
    <message>
        <source>Go to the previous finding of the checks</source>
        <translation>转到检查发现的上一个问题</translation>
    </message>
</context>
<context>
    <name>CChecksView</name>
    <message>
        <source>Measure By</source>
        <translation>检查尺度</translation>
    </message>
    <message>
        <source>What the project is measured by</source>
        <translation>检查项目所用的尺度</translation>
    </message>
    <message>
        <source>All pages</source>
        <translation>所有页面</translation>
    </message>
    <message>
        <source>Nothing found.</source>
        <translation>没有发现问题。</translation>
    </message>
    <message>
        <source>No project is open.</source>
        <translation>没有打开的项目。</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>Ignored</source>
        <translation>已忽略</translation>
    </message>
    <message>
        <source>Ignored: %1</source>
        <translation>已忽略：%1</translation>
    </message>
    <message>
        <source>&amp;Go There</source>
        <translation>转到该处(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Ignore Here...</source>
        <translation>在此忽略(&amp;I)...</translation>
    </message>
    <message>
        <source>&amp;Ask About It Again</source>
        <translation>重新检查(&amp;A)</translation>
    </message>
    <message>
        <source>Ignore a Finding</source>
        <translation>忽略一个问题</translation>
    </message>
    <message>
        <source>Why is it right as it is?</source>
        <translation>为什么这样是正确的？</translation>
    </message>
    <message>
        <source>Delete %1?</source>
        <translation>删除 %1？</translation>
    </message>
    <message>
        <source>Delete the File</source>
        <translation>删除文件</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>问题</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>Show ignored</source>
        <translation>显示已忽略的</translation>
    </message>
    <message>
        <source>The page whose findings are shown</source>
        <translation>显示其问题的页面</translation>
    </message>
    <message>
        <source>&amp;Ignore...</source>
        <translation>忽略(&amp;I)...</translation>
    </message>
</context>
<context>
    <name>CImageRenewal</name>
    <message>
        <source>Convert again</source>
        <translation>重新转换</translation>
    </message>
    <message>
        <source>%1 was converted again, and nothing of the picture is different.</source>
        <translation>%1 已重新转换，图像没有任何不同。</translation>
    </message>
</context>
<context>
    <name>CCommandDeleteImage</name>
    <message>
        <source>it is too large to be brought back by Undo</source>
        <translation>文件太大，无法通过撤销恢复</translation>
    </message>
    <message>
        <source>%1 was not deleted: an item shows it.</source>
        <translation>未删除 %1：有对象正在显示它。</translation>
    </message>
    <message>
        <source>%1 was not deleted: the project as it was saved last still shows it. Save the project first.</source>
        <translation>未删除 %1：上次保存的项目仍在显示它。请先保存项目。</translation>
    </message>
    <message>
        <source>%1 was not deleted: %2</source>
        <translation>未删除 %1：%2</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>它不是普通文件</translation>
    </message>
    <message>
        <source>%1 could not be deleted: %2</source>
        <translation>无法删除 %1：%2</translation>
    </message>
    <message>
        <source>The image cannot be brought back. %1</source>
        <translation>无法恢复图像。%1</translation>
    </message>
    <message>
        <source>Another file is called %1 now.</source>
        <translation>现在另一个文件名为 %1。</translation>
    </message>
</context>
<context>
    <name>CheckFixes</name>
    <message>
        <source>Delete an image file</source>
        <translation>删除图像文件</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>重命名(&amp;R)</translation>
    </message>
    <message>
        <source>Give It a &amp;New Id</source>
        <translation>分配新编号(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Delete the File...</source>
        <translation>删除文件(&amp;D)...</translation>
    </message>
    <message>
        <source>New id</source>
        <translation>新编号</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Ask about it again</source>
        <translation>重新检查</translation>
    </message>
    <message>
        <source>Ignore a finding</source>
        <translation>忽略一个问题</translation>
    </message>
    <message>
        <source>&amp;Convert Again</source>
        <translation>重新转换(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Dots per Inch of the Display...</source>
        <translation>显示屏的每英寸点数(&amp;D)...</translation>
    </message>
    <message>
        <source>Dots per inch of the display:</source>
        <translation>显示屏的每英寸点数：</translation>
    </message>
    <message>
        <source>Tell of &amp;Memory From...</source>
        <translation>内存提示的起点(&amp;M)...</translation>
    </message>
    <message>
        <source>Percent of a memory:</source>
        <translation>占内存的百分比：</translation>
    </message>
    <message>
        <source>Change what the checks measure by</source>
        <translation>更改检查所用的尺度</translation>
    </message>
</context>
<context>
    <name>Checks</name>
    <message>
        <source>There is no room for the text of %1.</source>
        <translation>%1 的文字没有显示空间。</translation>
    </message>
    <message>
        <source>The platform &quot;%1&quot; is not known; known are %2.</source>
        <translation>未知的平台“%1”；已知的有 %2。</translation>
    </message>
    <message>
        <source>The screen needs %1 bytes of %2; the chip has %3.</source>
        <translation>该页面需要 %2 的 %1 字节；芯片只有 %3 字节。</translation>
    </message>
    <message>
        <source>The screen needs %1 % of %2: %3 of %4 bytes.</source>
        <translation>该页面占用 %2 的 %1 %：%3 / %4 字节。</translation>
    </message>
    <message>
        <source>%1 shows its image %2 times as large as it is.</source>
        <translation>%1 将图像放大到原来的 %2 倍显示。</translation>
    </message>
    <message>
        <source>%1 shows its image at %2 % of its size; a smaller image would look as good.</source>
        <translation>%1 将图像缩小到原来的 %2 % 显示；使用更小的图像效果相同。</translation>
    </message>
    <message>
        <source>The image of %1 is missing: %2</source>
        <translation>%1 的图像缺失：%2</translation>
    </message>
    <message>
        <source>%1 items of the screen are called %2.</source>
        <translation>该页面有 %1 个对象名为 %2。</translation>
    </message>
    <message>
        <source>%1 and %2 are the same name in C; one gets a number.</source>
        <translation>%1 和 %2 在 C 中是同一个名称；其中一个会加上编号。</translation>
    </message>
    <message>
        <source>The text of %1 has a contrast of %2 : 1 to what is behind it; %3 : 1 is the least.</source>
        <translation>%1 的文字与背景的对比度为 %2 : 1；至少应为 %3 : 1。</translation>
    </message>
    <message>
        <source>The text of %1 is cut.</source>
        <translation>%1 的文字被截断。</translation>
    </message>
    <message>
        <source>The text of %1 is larger than its box.</source>
        <translation>%1 的文字超出了它的区域。</translation>
    </message>
    <message>
        <source>%1 is hidden by what lies in front of it.</source>
        <translation>%1 被前面的对象遮住。</translation>
    </message>
    <message>
        <source>%1 lies outside the screen.</source>
        <translation>%1 位于页面之外。</translation>
    </message>
    <message>
        <source>%1 lies partly outside the screen.</source>
        <translation>%1 部分位于页面之外。</translation>
    </message>
    <message>
        <source>%1 is %2 mm for a finger, at %3 dots per inch; 7 mm is the least.</source>
        <translation>按每英寸 %3 点计算，%1 只有 %2 毫米；手指操作至少需要 7 毫米。</translation>
    </message>
    <message>
        <source>%1 and %2 can be touched in the same place.</source>
        <translation>%1 和 %2 的触摸区域重叠。</translation>
    </message>
    <message>
        <source>%1 has no size.</source>
        <translation>%1 没有大小。</translation>
    </message>
    <message>
        <source>%1 has the id %2 as %3 has.</source>
        <translation>%1 的编号 %2 与 %3 相同。</translation>
    </message>
    <message>
        <source>Two screens are called %1.</source>
        <translation>有两个页面名为 %1。</translation>
    </message>
    <message>
        <source>The screens %1 and %2 are the same name in C; one gets a number.</source>
        <translation>页面 %1 和 %2 在 C 中是同一个名称；其中一个会加上编号。</translation>
    </message>
    <message>
        <source>The same image lies under several names: %1</source>
        <translation>同一图像有多个名称：%1</translation>
    </message>
    <message>
        <source>No item shows %1.</source>
        <translation>没有对象显示 %1。</translation>
    </message>
    <message>
        <source>Not drawn as designed</source>
        <translation>未按设计绘制</translation>
    </message>
    <message>
        <source>Memory of the chip</source>
        <translation>芯片内存</translation>
    </message>
    <message>
        <source>Not available on the chip</source>
        <translation>芯片不支持</translation>
    </message>
    <message>
        <source>Missing image</source>
        <translation>图像缺失</translation>
    </message>
    <message>
        <source>Outside the screen</source>
        <translation>位于页面之外</translation>
    </message>
    <message>
        <source>Without a size</source>
        <translation>没有大小</translation>
    </message>
    <message>
        <source>Hidden by others</source>
        <translation>被其他对象遮住</translation>
    </message>
    <message>
        <source>Too small for a finger</source>
        <translation>手指操作区域太小</translation>
    </message>
    <message>
        <source>Touch areas overlap</source>
        <translation>触摸区域重叠</translation>
    </message>
    <message>
        <source>Text does not fit</source>
        <translation>文字放不下</translation>
    </message>
    <message>
        <source>Text with little contrast</source>
        <translation>文字对比度不足</translation>
    </message>
    <message>
        <source>Image scaled a lot</source>
        <translation>图像缩放过大</translation>
    </message>
    <message>
        <source>One image under two names</source>
        <translation>一个图像有两个名称</translation>
    </message>
    <message>
        <source>Image that nothing shows</source>
        <translation>未使用的图像</translation>
    </message>
    <message>
        <source>Id used twice</source>
        <translation>编号重复</translation>
    </message>
    <message>
        <source>Name used twice</source>
        <translation>名称重复</translation>
    </message>
    <message>
        <source>Same name in C</source>
        <translation>C 名称相同</translation>
    </message>
    <message>
        <source>Image file changed since</source>
        <translation>图像文件之后有改动</translation>
    </message>
    <message>
        <source>The image of %1 was made of %2, which has changed since.</source>
        <translation>%1 的图像由 %2 转换而来，而该文件之后有改动。</translation>
    </message>
    <message>
        <source>Character that the font lacks</source>
        <translation>字体缺少的字符</translation>
    </message>
    <message>
        <source>The message says what could not be drawn; the widget named needs another value.</source>
        <translation>消息说明了什么无法绘制；所指的控件需要另一个值。</translation>
    </message>
    <message>
        <source>Choose a font that has the character, or give the project&apos;s font a fallback that does.</source>
        <translation>选择含有该字符的字体，或为项目字体指定含有该字符的后备字体。</translation>
    </message>
    <message>
        <source>Other formats for the largest images take less; the dock Budget shows them.</source>
        <translation>最大的图像换用其他格式可节省内存；“预算”窗口会列出它们。</translation>
    </message>
    <message>
        <source>Choose another value, or another chip under Tools, Options.</source>
        <translation>选择另一个值，或在“工具”、“选项”中选择另一种芯片。</translation>
    </message>
    <message>
        <source>Choose the image anew, or put its file back into the folder of converted images.</source>
        <translation>重新选择图像，或把文件放回已转换图像的文件夹。</translation>
    </message>
    <message>
        <source>Convert it again, so that the device shows what the file shows.</source>
        <translation>重新转换，使设备显示的与文件一致。</translation>
    </message>
    <message>
        <source>Move it onto the page, or delete it: outside it costs memory and is not seen.</source>
        <translation>把它移到页面上，或将其删除：在页面之外它占用内存却看不见。</translation>
    </message>
    <message>
        <source>Give it a size, or delete it.</source>
        <translation>给它一个尺寸，或将其删除。</translation>
    </message>
    <message>
        <source>Bring it to the front, or delete it: it is drawn and never seen.</source>
        <translation>把它移到前面，或将其删除：它被绘制却永远看不见。</translation>
    </message>
    <message>
        <source>Make it larger. If the size is right, tell the dots per inch of the display.</source>
        <translation>把它放大。如果尺寸无误，请填写显示屏的每英寸点数。</translation>
    </message>
    <message>
        <source>Move them apart: a finger between them meets either.</source>
        <translation>把它们分开：手指落在中间会碰到任意一个。</translation>
    </message>
    <message>
        <source>Make the box larger, the font smaller or the text shorter.</source>
        <translation>放大文本框、缩小字体或缩短文本。</translation>
    </message>
    <message>
        <source>Choose a lighter or darker colour for the text or for what is behind it.</source>
        <translation>为文本或其背景选择更亮或更暗的颜色。</translation>
    </message>
    <message>
        <source>Convert the image in the size in which it is shown.</source>
        <translation>按显示的尺寸转换图像。</translation>
    </message>
    <message>
        <source>Let all widgets show one of the files; the package holds it once in any case.</source>
        <translation>让所有控件显示同一个文件；包中无论如何只存一份。</translation>
    </message>
    <message>
        <source>Delete the file, or ignore it when it is for later.</source>
        <translation>删除该文件；如果留待以后使用，请忽略此项。</translation>
    </message>
    <message>
        <source>Give it a new id: ids tell widgets apart on the device.</source>
        <translation>给它一个新的标识：设备上靠标识区分控件。</translation>
    </message>
    <message>
        <source>Rename it, so that it can be told apart.</source>
        <translation>将其重命名，以便区分。</translation>
    </message>
    <message>
        <source>Rename one: the firmware knows them by names in C.</source>
        <translation>将其中一个重命名：固件以 C 名称识别它们。</translation>
    </message>
    <message>
        <source>The text of %1 goes beyond the edge of the page.</source>
        <translation>%1 的文本超出了页面边缘。</translation>
    </message>
</context>
<context>
    <name>SFormatTrial</name>
    <message>
        <source>%1 cannot be copied</source>
        <translation>无法复制 %1</translation>
    </message>
    <message>
        <source>%1 cannot be started</source>
        <translation>无法启动 %1</translation>
    </message>
    <message>
        <source>%1 was ended</source>
        <translation>%1 已被终止</translation>
    </message>
    <message>
        <source>%1 failed</source>
        <translation>%1 失败</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>无法读取 %1</translation>
    </message>
    <message>
        <source>there is no such format</source>
        <translation>没有这种格式</translation>
    </message>
    <message>
        <source>its size is another</source>
        <translation>大小不一致</translation>
    </message>
</context>
</TS>
