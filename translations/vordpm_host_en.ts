<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>EditorLoader</name>
    <message>
        <source>找不到编辑器库：%1</source>
        <translation>Editor library not found: %1</translation>
    </message>
    <message>
        <source>无法加载编辑器库 %1：%2</source>
        <translation>Cannot load the editor library %1: %2</translation>
    </message>
    <message>
        <source>编辑器库 %1 没有导出入口函数 %2，它不是本编辑器的库，或与本程序的版本不符。</source>
        <translation>The editor library %1 does not export the entry function %2: it is not this editor&apos;s library, or its version does not match this program.</translation>
    </message>
</context>
<context>
    <name>HostDialogPrompt</name>
    <message>
        <source>产品库管理</source>
        <translation>Product Library Manager</translation>
    </message>
    <message>
        <source>产品库有未保存的修改，是否保存？</source>
        <translation>The libraries have unsaved changes. Save them?</translation>
    </message>
</context>
<context>
    <name>LibraryRootChooser</name>
    <message>
        <source>无法使用产品库根目录 %1：%2</source>
        <translation>Cannot use the library root %1: %2</translation>
    </message>
    <message>
        <source>无法创建示例产品库 %1：%2</source>
        <translation>Cannot create the sample libraries in %1: %2</translation>
    </message>
</context>
<context>
    <name>PendingWork</name>
    <message>
        <source>保存失败：%1</source>
        <translation>Saving failed: %1</translation>
    </message>
</context>
<context>
    <name>PreviewResult</name>
    <message>
        <source>脚本错误：%1</source>
        <translation>Script error: %1</translation>
    </message>
    <message>
        <source>未知错误</source>
        <translation>unknown error</translation>
    </message>
    <message>
        <source>脚本运行时间过长，已停止。</source>
        <translation>The script ran too long and was stopped.</translation>
    </message>
    <message>
        <source>脚本占用内存过多，已停止。</source>
        <translation>The script used too much memory and was stopped.</translation>
    </message>
    <message>
        <source>预览程序出错：%1</source>
        <translation>The preview program failed: %1</translation>
    </message>
</context>
<context>
    <name>PreviewWidget</name>
    <message>
        <source>脚本没有绘制任何图形。</source>
        <translation>The script did not draw anything.</translation>
    </message>
    <message>
        <source>脚本正在运行……</source>
        <translation>The script is running…</translation>
    </message>
</context>
</TS>
