<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>CDPMContentPage</name>
    <message>
        <source>产品目录</source>
        <translation>Catalog</translation>
    </message>
    <message>
        <source>添加包含产品</source>
        <translation>Add Included Products</translation>
    </message>
    <message>
        <source>删除包含产品</source>
        <translation>Delete Included Products</translation>
    </message>
    <message>
        <source>外部引用目录</source>
        <translation>External Catalogs</translation>
    </message>
    <message>
        <source>添加引用</source>
        <translation>Add Reference</translation>
    </message>
    <message>
        <source>删除引用</source>
        <translation>Delete Reference</translation>
    </message>
    <message>
        <source>分类</source>
        <translation>Classification</translation>
    </message>
    <message>
        <source>重命名分类</source>
        <translation>Rename Classification</translation>
    </message>
    <message>
        <source>产品库无效</source>
        <translation>Library not valid</translation>
    </message>
    <message>
        <source>产品目录无效</source>
        <translation>Catalog not valid</translation>
    </message>
    <message>
        <source>有效</source>
        <translation>Valid</translation>
    </message>
    <message>
        <source>版本信息</source>
        <translation>Versions</translation>
    </message>
    <message>
        <source>序号</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>产品</source>
        <translation>Product</translation>
    </message>
    <message>
        <source>产品版本</source>
        <translation>Product Version</translation>
    </message>
    <message>
        <source>产品描述</source>
        <translation>Product Description</translation>
    </message>
    <message>
        <source>外部目录</source>
        <translation>External Catalog</translation>
    </message>
    <message>
        <source>目录版本</source>
        <translation>Catalog Version</translation>
    </message>
    <message>
        <source>目录描述</source>
        <translation>Catalog Description</translation>
    </message>
    <message>
        <source>状态</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>外部库引用目录</source>
        <translation>Catalogs Referenced from Other Libraries</translation>
    </message>
    <message>
        <source>产品目录内容</source>
        <translation>Catalog Contents</translation>
    </message>
    <message>
        <source>产品目录&quot;%1/%2&quot;不存在。</source>
        <translation>The catalog &quot;%1/%2&quot; does not exist.</translation>
    </message>
    <message>
        <source>无法读取产品目录&quot;%1/%2&quot;的文件: %3</source>
        <translation>Cannot read the file of the catalog &quot;%1/%2&quot;: %3</translation>
    </message>
    <message>
        <source>产品目录&quot;%1&quot;的版本信息</source>
        <translation>Versions of the catalog &quot;%1&quot;</translation>
    </message>
    <message>
        <source>该节点名已存在，请重新输入</source>
        <translation>A node of this name already exists. Please enter another.</translation>
    </message>
</context>
<context>
    <name>CDPMDataPage</name>
    <message>
        <source>产品数据</source>
        <translation>Product Data</translation>
    </message>
    <message>
        <source>添加产品</source>
        <translation>Add Product</translation>
    </message>
    <message>
        <source>删除产品</source>
        <translation>Delete Product</translation>
    </message>
    <message>
        <source>修改产品</source>
        <translation>Edit Product</translation>
    </message>
    <message>
        <source>版本信息</source>
        <translation>Versions</translation>
    </message>
    <message>
        <source>无法读取产品&quot;%1&quot;: %2</source>
        <translation>Cannot read the product &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>产品</source>
        <translation>Product</translation>
    </message>
    <message>
        <source>产品重命名</source>
        <translation>Rename Product</translation>
    </message>
    <message>
        <source>产品库&quot;%1&quot;不存在。</source>
        <translation>The library &quot;%1&quot; does not exist.</translation>
    </message>
    <message>
        <source>确实要把&quot;%1&quot;产品放入回收站吗?</source>
        <translation>Do you really want to move the product &quot;%1&quot; to the trash?</translation>
    </message>
    <message>
        <source>删除失败: %1</source>
        <translation>Deleting failed: %1</translation>
    </message>
    <message>
        <source>重命名失败: %1</source>
        <translation>Renaming failed: %1</translation>
    </message>
    <message>
        <source>产品&quot;%1&quot;的版本信息</source>
        <translation>Versions of the product &quot;%1&quot;</translation>
    </message>
    <message>
        <source>从表格新建…</source>
        <translation>New from table…</translation>
    </message>
</context>
<context>
    <name>CDPMSeriesModel</name>
    <message>
        <source>产品</source>
        <translation>Product</translation>
    </message>
</context>
<context>
    <name>CDPMlibraryPage</name>
    <message>
        <source>公司名称</source>
        <translation>Company</translation>
    </message>
    <message>
        <source>描述</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>关键字</source>
        <translation>Keywords</translation>
    </message>
    <message>
        <source>作者</source>
        <translation>Author</translation>
    </message>
    <message>
        <source>产品总数</source>
        <translation>All products</translation>
    </message>
    <message>
        <source>本库产品数</source>
        <translation>Own products</translation>
    </message>
    <message>
        <source>引用产品数</source>
        <translation>Included</translation>
    </message>
    <message>
        <source>产品库</source>
        <translation>Library</translation>
    </message>
    <message>
        <source>修改</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>载入图片</source>
        <translation>Load Picture</translation>
    </message>
    <message>
        <source>保存</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>版本信息</source>
        <translation>Versions</translation>
    </message>
    <message>
        <source>项目</source>
        <translation>Item</translation>
    </message>
    <message>
        <source>内容</source>
        <translation>Content</translation>
    </message>
    <message>
        <source>产品库信息</source>
        <translation>Library Information</translation>
    </message>
    <message>
        <source>产品库图片</source>
        <translation>Library Picture</translation>
    </message>
    <message>
        <source>产品库&quot;%1&quot;不存在。</source>
        <translation>The library &quot;%1&quot; does not exist.</translation>
    </message>
    <message>
        <source>无法读取产品库&quot;%1&quot;的信息文件: %2</source>
        <translation>Cannot read the information file of the library &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>请输入:</source>
        <translation>Please enter:</translation>
    </message>
    <message>
        <source>图片文件 (*.bmp *.png *.jpg *.jpeg *.gif);;所有文件 (*)</source>
        <translation>Pictures (*.bmp *.png *.jpg *.jpeg *.gif);;All files (*)</translation>
    </message>
    <message>
        <source>无法读取文件&quot;%1&quot;!</source>
        <translation>Cannot read the file &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>文件&quot;%1&quot;不是可以识别的图片!</source>
        <translation>The file &quot;%1&quot; is not a picture that can be read.</translation>
    </message>
    <message>
        <source>产品库&quot;%1&quot;的版本信息</source>
        <translation>Versions of the library &quot;%1&quot;</translation>
    </message>
    <message>
        <source>已保存。</source>
        <translation>Saved.</translation>
    </message>
</context>
<context>
    <name>CVorDPMAddProductDlg</name>
    <message>
        <source>产品信息</source>
        <translation>Product Information</translation>
    </message>
    <message>
        <source>分类信息</source>
        <translation>Classification</translation>
    </message>
    <message>
        <source>添加包含产品</source>
        <translation>Add Included Products</translation>
    </message>
    <message>
        <source>分类1:</source>
        <translation>Classification 1:</translation>
    </message>
    <message>
        <source>分类2:</source>
        <translation>Classification 2:</translation>
    </message>
    <message>
        <source>分类3:</source>
        <translation>Classification 3:</translation>
    </message>
    <message>
        <source>产品：%1已被添加！</source>
        <translation>The product %1 has already been added.</translation>
    </message>
</context>
<context>
    <name>CVorDPMAddRef</name>
    <message>
        <source>%1/%2添加失败，该外部目录已被包含！</source>
        <translation>Adding %1/%2 failed: this external catalog is already included.</translation>
    </message>
</context>
<context>
    <name>CVorDPMCheckFindingModel</name>
    <message>
        <source>错误</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>警告</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>级别</source>
        <translation>Severity</translation>
    </message>
    <message>
        <source>文件</source>
        <translation>File</translation>
    </message>
    <message>
        <source>表#行</source>
        <translation>Table#Row</translation>
    </message>
    <message>
        <source>产品</source>
        <translation>Product</translation>
    </message>
    <message>
        <source>说明</source>
        <translation>Message</translation>
    </message>
</context>
<context>
    <name>CVorDPMCreateProductDlg</name>
    <message>
        <source>创建产品</source>
        <translation>Create Product</translation>
    </message>
    <message>
        <source>版本信息</source>
        <translation>Versions</translation>
    </message>
    <message>
        <source>另存为模板</source>
        <translation>Save as Template</translation>
    </message>
    <message>
        <source>保存继续</source>
        <translation>Save and Continue</translation>
    </message>
    <message>
        <source>保存关闭</source>
        <translation>Save and Close</translation>
    </message>
    <message>
        <source>产品&quot;%1&quot;的版本信息</source>
        <translation>Versions of the product &quot;%1&quot;</translation>
    </message>
    <message>
        <source>导入…</source>
        <translation>Import…</translation>
    </message>
    <message>
        <source>导出…</source>
        <translation>Export…</translation>
    </message>
    <message>
        <source>产品有未保存的修改。请先按&quot;保存继续&quot;保存, 再导入表格。</source>
        <translation>The product has unsaved changes. Save them with &quot;Save and continue&quot; first, then import the table.</translation>
    </message>
    <message>
        <source>导入表格</source>
        <translation>Import table</translation>
    </message>
</context>
<context>
    <name>CVorDPMCreateTemplateDlg</name>
    <message>
        <source>创建模板</source>
        <translation>Create Template</translation>
    </message>
    <message>
        <source>保存并继续</source>
        <translation>Save and Continue</translation>
    </message>
    <message>
        <source>保存并关闭</source>
        <translation>Save and Close</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>CVorDPMDPODlg</name>
    <message>
        <source>属性表</source>
        <translation>Property Table</translation>
    </message>
    <message>
        <source>属性分类</source>
        <translation>Property Groups</translation>
    </message>
    <message>
        <source>属性列表</source>
        <translation>Properties</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>值的类型</source>
        <translation>Value Type</translation>
    </message>
    <message>
        <source>单位</source>
        <translation>Unit</translation>
    </message>
    <message>
        <source>默认值</source>
        <translation>Default Value</translation>
    </message>
    <message>
        <source>描述</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>单位表</source>
        <translation>Unit Table</translation>
    </message>
    <message>
        <source>单位分类</source>
        <translation>Unit Groups</translation>
    </message>
    <message>
        <source>单位列表</source>
        <translation>Units</translation>
    </message>
    <message>
        <source>符号</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>转换</source>
        <translation>Conversion</translation>
    </message>
    <message>
        <source>内置参数表</source>
        <translation>Built-in Parameter Table</translation>
    </message>
    <message>
        <source>内置参数分类</source>
        <translation>Built-in Parameter Groups</translation>
    </message>
    <message>
        <source>内置参数列表</source>
        <translation>Built-in Parameters</translation>
    </message>
    <message>
        <source>未选择项目, 请重新选择!</source>
        <translation>Nothing is selected. Please select an item.</translation>
    </message>
</context>
<context>
    <name>CVorDPMDeletLibDlg</name>
    <message>
        <source>移除产品</source>
        <translation>Remove Libraries</translation>
    </message>
    <message>
        <source>移除</source>
        <translation>Remove</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>请选择需要删除的项!</source>
        <translation>Please select the items to delete.</translation>
    </message>
    <message>
        <source>确实要把选择的所有产品库放入回收站吗?</source>
        <translation>Do you really want to move all selected libraries to the trash?</translation>
    </message>
</context>
<context>
    <name>CVorDPMEditProductDlg</name>
    <message>
        <source>属性ID</source>
        <translation>Property ID</translation>
    </message>
    <message>
        <source>属性别名</source>
        <translation>Property Alias</translation>
    </message>
    <message>
        <source>参数名</source>
        <translation>Parameter Name</translation>
    </message>
    <message>
        <source>分类</source>
        <translation>Category</translation>
    </message>
    <message>
        <source>单位</source>
        <translation>Unit</translation>
    </message>
    <message>
        <source>默认值</source>
        <translation>Default Value</translation>
    </message>
    <message>
        <source>系列化检查</source>
        <translation>Series Check</translation>
    </message>
    <message>
        <source>系统属性</source>
        <translation>System Property</translation>
    </message>
    <message>
        <source>描述</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>名字</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>大小</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>是</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>否</source>
        <translation>No</translation>
    </message>
    <message>
        <source>形体名称</source>
        <translation>Shape Name</translation>
    </message>
    <message>
        <source>产品名称</source>
        <translation>Product Name</translation>
    </message>
    <message>
        <source>命名规则</source>
        <translation>Naming Rule</translation>
    </message>
    <message>
        <source>序号</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>产品ID</source>
        <translation>Product ID</translation>
    </message>
    <message>
        <source>参数化形体库ID</source>
        <translation>Parametric Shape ID</translation>
    </message>
    <message>
        <source>实物图片ID</source>
        <translation>Picture ID</translation>
    </message>
    <message>
        <source>产品属性定义（1）</source>
        <translation>Property Definitions (1)</translation>
    </message>
    <message>
        <source>实物图片库（2）</source>
        <translation>Pictures (2)</translation>
    </message>
    <message>
        <source>参数化形体库（3）</source>
        <translation>Parametric Shapes (3)</translation>
    </message>
    <message>
        <source>产品列表（4）</source>
        <translation>Products (4)</translation>
    </message>
    <message>
        <source>产品系列化（5）</source>
        <translation>Series (5)</translation>
    </message>
    <message>
        <source>新建</source>
        <translation>New</translation>
    </message>
    <message>
        <source>编辑</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>删除</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>复制</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>撤销</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>重做</source>
        <translation>Redo</translation>
    </message>
</context>
<context>
    <name>CVorDPMEditTemplateDlg</name>
    <message>
        <source>编辑模板</source>
        <translation>Edit Template</translation>
    </message>
    <message>
        <source>选择模板</source>
        <translation>Choose Template</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>请选择正确的模板</source>
        <translation>Please choose a valid template.</translation>
    </message>
</context>
<context>
    <name>CVorDPMEditorDlg</name>
    <message>
        <source>产品库管理</source>
        <translation>Product Library Manager</translation>
    </message>
    <message>
        <source>产品库</source>
        <translation>Library</translation>
    </message>
    <message>
        <source>新建产品库</source>
        <translation>New Library</translation>
    </message>
    <message>
        <source>删除产品库</source>
        <translation>Delete Library</translation>
    </message>
    <message>
        <source>产品库根路径</source>
        <translation>Library Root Path</translation>
    </message>
    <message>
        <source>基本属性</source>
        <translation>Basic Properties</translation>
    </message>
    <message>
        <source>属性表</source>
        <translation>Property Table</translation>
    </message>
    <message>
        <source>单位表</source>
        <translation>Unit Table</translation>
    </message>
    <message>
        <source>内置参数表</source>
        <translation>Built-in Parameter Table</translation>
    </message>
    <message>
        <source>模板</source>
        <translation>Templates</translation>
    </message>
    <message>
        <source>新建模板</source>
        <translation>New Template</translation>
    </message>
    <message>
        <source>编辑模板</source>
        <translation>Edit Template</translation>
    </message>
    <message>
        <source>删除模板</source>
        <translation>Delete Template</translation>
    </message>
    <message>
        <source>新建目录</source>
        <translation>New Catalog</translation>
    </message>
    <message>
        <source>复制目录</source>
        <translation>Copy Catalog</translation>
    </message>
    <message>
        <source>删除目录</source>
        <translation>Delete Catalog</translation>
    </message>
    <message>
        <source>重命名目录</source>
        <translation>Rename Catalog</translation>
    </message>
    <message>
        <source>新建产品目录</source>
        <translation>New Catalog</translation>
    </message>
    <message>
        <source>所有文件(*.*)</source>
        <translation>All files (*)</translation>
    </message>
    <message>
        <source>产品目录名称</source>
        <translation>Catalog Name</translation>
    </message>
    <message>
        <source>请输入:</source>
        <translation>Please enter:</translation>
    </message>
    <message>
        <source>请输入产品目录名称！</source>
        <translation>Please enter a catalog name.</translation>
    </message>
    <message>
        <source>文件名含有无效的字符, 请重新输入!</source>
        <translation>The name contains characters that a file name cannot hold. Please enter another.</translation>
    </message>
    <message>
        <source>创建失败!</source>
        <translation>Creation failed.</translation>
    </message>
    <message>
        <source>新产品目录名称</source>
        <translation>New Catalog Name</translation>
    </message>
    <message>
        <source>请输入新产品目录名称！</source>
        <translation>Please enter the new catalog name.</translation>
    </message>
    <message>
        <source>失败!</source>
        <translation>Failed.</translation>
    </message>
    <message>
        <source>确实要把&quot;%1&quot;产品目录放入回收站吗?</source>
        <translation>Do you really want to move the catalog &quot;%1&quot; to the trash?</translation>
    </message>
    <message>
        <source>确实要把&quot;%1&quot;产品库放入回收站吗?</source>
        <translation>Do you really want to move the library &quot;%1&quot; to the trash?</translation>
    </message>
    <message>
        <source>显示全部产品库</source>
        <translation>Show all libraries</translation>
    </message>
    <message>
        <source>产品库&quot;%1&quot;中没有产品定义&quot;%2&quot;。</source>
        <translation>Library &quot;%1&quot; has no product definition &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>目录树中没有产品目录&quot;%1/%2&quot;。</source>
        <translation>The tree does not show the catalog &quot;%1/%2&quot;.</translation>
    </message>
</context>
<context>
    <name>CVorDPMFamilyWork</name>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>正在读取表格...</source>
        <translation>Reading the table...</translation>
    </message>
    <message>
        <source>表格文件 (*.csv *.tsv *.txt *.xlsx);;所有文件 (*)</source>
        <translation>Table files (*.csv *.tsv *.txt *.xlsx);;All files (*)</translation>
    </message>
</context>
<context>
    <name>CVorDPMLibraryCheckPanel</name>
    <message>
        <source>检查</source>
        <translation>Check</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>检查所选产品库已保存的文件：文件、命名规则、系列数据、目录和脚本</source>
        <translation>Checks the saved files of the selected library: files, naming rules, series, catalogs and scripts</translation>
    </message>
    <message>
        <source>正在检查产品库&quot;%1&quot;……</source>
        <translation>Checking library &quot;%1&quot;…</translation>
    </message>
    <message>
        <source>%1 个文件，%2 个错误，%3 个警告</source>
        <translation>%1 files, %2 errors, %3 warnings</translation>
    </message>
    <message>
        <source>检查已取消（到此为止：%1）</source>
        <translation>Check cancelled (so far: %1)</translation>
    </message>
    <message>
        <source>检查完成：%1</source>
        <translation>Check done: %1</translation>
    </message>
</context>
<context>
    <name>CVorDPMLibrarySearch</name>
    <message>
        <source>搜索</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Names</translation>
    </message>
    <message>
        <source>产品</source>
        <translation>Products</translation>
    </message>
    <message>
        <source>全库</source>
        <translation>All libraries</translation>
    </message>
    <message>
        <source>按名称查找产品库、目录、分类和产品定义</source>
        <translation>Find libraries, catalogs, classifications and definitions by name</translation>
    </message>
    <message>
        <source>查找所选产品库的产品</source>
        <translation>Find the products of the selected library</translation>
    </message>
    <message>
        <source>查找全部产品库的产品</source>
        <translation>Find the products of every library</translation>
    </message>
</context>
<context>
    <name>CVorDPMNewContentDlg</name>
    <message>
        <source>产品目录名:</source>
        <translation>Catalog name:</translation>
    </message>
    <message>
        <source>产品库名称</source>
        <translation>Library Name</translation>
    </message>
    <message>
        <source>请选择产品库!</source>
        <translation>Please select a library.</translation>
    </message>
    <message>
        <source>产品目录不能为空!</source>
        <translation>The catalog name must not be empty.</translation>
    </message>
    <message>
        <source>该产品目录名已存在!</source>
        <translation>A catalog of this name already exists.</translation>
    </message>
    <message>
        <source>创建失败!</source>
        <translation>Creation failed.</translation>
    </message>
</context>
<context>
    <name>CVorDPMNewLibraryDlg</name>
    <message>
        <source>新建产品库</source>
        <translation>New Library</translation>
    </message>
    <message>
        <source>产品库名称</source>
        <translation>Library Name</translation>
    </message>
    <message>
        <source>名字不能包含下列任何字符：</source>
        <translation>A name cannot contain any of these characters:</translation>
    </message>
    <message>
        <source>该产品库已存在!</source>
        <translation>This library already exists.</translation>
    </message>
    <message>
        <source>创建失败!</source>
        <translation>Creation failed.</translation>
    </message>
</context>
<context>
    <name>CVorDPMNewProductDlg</name>
    <message>
        <source>添加产品</source>
        <translation>Add Product</translation>
    </message>
    <message>
        <source>产品文件名</source>
        <translation>Product File Name</translation>
    </message>
    <message>
        <source>选择产品模板</source>
        <translation>Choose a Product Template</translation>
    </message>
    <message>
        <source>下一步</source>
        <translation>Next</translation>
    </message>
    <message>
        <source>产品库&quot;%1&quot;不存在。</source>
        <translation>The library &quot;%1&quot; does not exist.</translation>
    </message>
    <message>
        <source>请选择正确的模板</source>
        <translation>Please choose a valid template.</translation>
    </message>
    <message>
        <source>创建产品失败: %1</source>
        <translation>Creating the product failed: %1</translation>
    </message>
</context>
<context>
    <name>CVorDPMNewScriptDlg</name>
    <message>
        <source>新建脚本</source>
        <translation>New Script</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>描述</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>脚本</source>
        <translation>Script</translation>
    </message>
    <message>
        <source>添加失败！</source>
        <translation>Adding failed.</translation>
    </message>
</context>
<context>
    <name>CVorDPMNewTemplateDlg</name>
    <message>
        <source>新建模板</source>
        <translation>New Template</translation>
    </message>
    <message>
        <source>产品模板类型</source>
        <translation>Product Template Type</translation>
    </message>
    <message>
        <source>模板名称</source>
        <translation>Template Name</translation>
    </message>
    <message>
        <source>下一步</source>
        <translation>Next</translation>
    </message>
    <message>
        <source>没有选择模板位置，请选择!</source>
        <translation>No template location is chosen. Please choose one.</translation>
    </message>
    <message>
        <source>请在下拉列表中选择模板位置!</source>
        <translation>Please choose the template location from the list.</translation>
    </message>
    <message>
        <source>请输入模板名称</source>
        <translation>Please enter a template name.</translation>
    </message>
    <message>
        <source>已存在，请指定其他模板名！</source>
        <translation>This name already exists. Please choose another template name.</translation>
    </message>
    <message>
        <source>创建模板失败: %1</source>
        <translation>Creating the template failed: %1</translation>
    </message>
</context>
<context>
    <name>CVorDPMProductEdit</name>
    <message>
        <source>无单位</source>
        <translation>No unit</translation>
    </message>
    <message>
        <source>&lt;选择单位...&gt;</source>
        <translation>&lt;Choose unit...&gt;</translation>
    </message>
    <message>
        <source>属性ID，属性别名和参数名不能为空，请输入!</source>
        <translation>Property ID, property alias and parameter name must not be empty. Please enter them.</translation>
    </message>
    <message>
        <source>属性别名或参数名已存在，请重新输入!</source>
        <translation>The property alias or parameter name already exists. Please enter another.</translation>
    </message>
    <message>
        <source>图片名称不能为空!</source>
        <translation>The picture name must not be empty.</translation>
    </message>
    <message>
        <source>图片名称已存在，请重新输入!</source>
        <translation>A picture of this name already exists. Please enter another.</translation>
    </message>
    <message>
        <source>形体名称不能为空！</source>
        <translation>The shape name must not be empty.</translation>
    </message>
    <message>
        <source>形体名称已存在，请重新输入！</source>
        <translation>A shape of this name already exists. Please enter another.</translation>
    </message>
    <message>
        <source>产品名称不能为空!</source>
        <translation>The product name must not be empty.</translation>
    </message>
    <message>
        <source>产品名称已存在，请重新输入!</source>
        <translation>A product of this name already exists. Please enter another.</translation>
    </message>
    <message>
        <source>无法读取文件，未改变</source>
        <translation>Cannot read the file; nothing changed</translation>
    </message>
    <message>
        <source>文件为空，未改变</source>
        <translation>The file is empty; nothing changed</translation>
    </message>
    <message>
        <source>不是图片文件，未改变</source>
        <translation>Not a picture file; nothing changed</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>产品属性</source>
        <translation>Product Properties</translation>
    </message>
    <message>
        <source>产品属性定义</source>
        <translation>Property Definitions</translation>
    </message>
    <message>
        <source>属性ID</source>
        <translation>Property ID</translation>
    </message>
    <message>
        <source>属性别名</source>
        <translation>Property Alias</translation>
    </message>
    <message>
        <source>参数名</source>
        <translation>Parameter Name</translation>
    </message>
    <message>
        <source>分类</source>
        <translation>Category</translation>
    </message>
    <message>
        <source>单位</source>
        <translation>Unit</translation>
    </message>
    <message>
        <source>默认值</source>
        <translation>Default Value</translation>
    </message>
    <message>
        <source>系列化检查</source>
        <translation>Series Check</translation>
    </message>
    <message>
        <source>系统属性</source>
        <translation>System Property</translation>
    </message>
    <message>
        <source>描述</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>产品图片</source>
        <translation>Product Pictures</translation>
    </message>
    <message>
        <source>实物图片库</source>
        <translation>Pictures</translation>
    </message>
    <message>
        <source>名字</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>图片</source>
        <translation>Picture</translation>
    </message>
    <message>
        <source>大小</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>2D</source>
        <translation>2D</translation>
    </message>
    <message>
        <source>3D</source>
        <translation>3D</translation>
    </message>
    <message>
        <source>sys</source>
        <translation>sys</translation>
    </message>
    <message>
        <source>IsBlock</source>
        <translation>IsBlock</translation>
    </message>
    <message>
        <source>产品形体</source>
        <translation>Product Shapes</translation>
    </message>
    <message>
        <source>参数化形体库</source>
        <translation>Parametric Shapes</translation>
    </message>
    <message>
        <source>DPS ID</source>
        <translation>DPS ID</translation>
    </message>
    <message>
        <source>形体名称</source>
        <translation>Shape Name</translation>
    </message>
    <message>
        <source>产品列表</source>
        <translation>Products</translation>
    </message>
    <message>
        <source>产品名</source>
        <translation>Product Name</translation>
    </message>
    <message>
        <source>命名规则</source>
        <translation>Naming Rule</translation>
    </message>
    <message>
        <source>产品系列</source>
        <translation>Product Series</translation>
    </message>
    <message>
        <source>产品系列化</source>
        <translation>Series</translation>
    </message>
    <message>
        <source>产品ID</source>
        <translation>Product ID</translation>
    </message>
    <message>
        <source>参数化形体库ID</source>
        <translation>Parametric Shape ID</translation>
    </message>
    <message>
        <source>实物图片ID</source>
        <translation>Picture ID</translation>
    </message>
    <message>
        <source>属性</source>
        <translation>Properties</translation>
    </message>
    <message>
        <source>没有这个产品</source>
        <translation>No such product</translation>
    </message>
</context>
<context>
    <name>CVorDPMProductHitModel</name>
    <message>
        <source>产品</source>
        <translation>Product</translation>
    </message>
    <message>
        <source>产品定义</source>
        <translation>Definition</translation>
    </message>
    <message>
        <source>目录</source>
        <translation>Catalog path</translation>
    </message>
</context>
<context>
    <name>CVorDPMRelatedDlg</name>
    <message>
        <source>选择产品</source>
        <translation>Choose Product</translation>
    </message>
    <message>
        <source>选择形体</source>
        <translation>Choose Shape</translation>
    </message>
    <message>
        <source>选择图片</source>
        <translation>Choose Picture</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>描述</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>未选择项目, 请重新选择!</source>
        <translation>Nothing is selected. Please select an item.</translation>
    </message>
</context>
<context>
    <name>CVorDPMSaveAsTemplateDlg</name>
    <message>
        <source>另存为模板</source>
        <translation>Save as Template</translation>
    </message>
    <message>
        <source>选择模板位置</source>
        <translation>Template Location</translation>
    </message>
    <message>
        <source>新模板名</source>
        <translation>New Template Name</translation>
    </message>
    <message>
        <source>请输入模板名称</source>
        <translation>Please enter a template name.</translation>
    </message>
    <message>
        <source>创建失败！</source>
        <translation>Creation failed.</translation>
    </message>
    <message>
        <source>该名称的模板已存在！</source>
        <translation>A template of this name already exists.</translation>
    </message>
</context>
<context>
    <name>CVorDPMScriptEdit</name>
    <message>
        <source>参数化脚本编辑器</source>
        <translation>Parametric Script Editor</translation>
    </message>
    <message>
        <source>选择脚本</source>
        <translation>Choose Script</translation>
    </message>
    <message>
        <source>名称:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>描述:</source>
        <translation>Description:</translation>
    </message>
    <message>
        <source>新建脚本</source>
        <translation>New Script</translation>
    </message>
    <message>
        <source>保存脚本</source>
        <translation>Save Script</translation>
    </message>
    <message>
        <source>删除脚本</source>
        <translation>Delete Script</translation>
    </message>
    <message>
        <source>预览</source>
        <translation>Preview</translation>
    </message>
    <message>
        <source>脚本</source>
        <translation>Script</translation>
    </message>
    <message>
        <source>脚本参数</source>
        <translation>Script Parameter</translation>
    </message>
    <message>
        <source>类型</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>顺序</source>
        <translation>Order</translation>
    </message>
    <message>
        <source>测试值</source>
        <translation>Test Value</translation>
    </message>
    <message>
        <source>请选择需要保存的脚本</source>
        <translation>Please select the script to save.</translation>
    </message>
    <message>
        <source>请选择脚本</source>
        <translation>Please select a script.</translation>
    </message>
</context>
<context>
    <name>CVorDPMScriptParams</name>
    <message>
        <source>Unkonw Parameters</source>
        <translation>Unknown Parameters</translation>
    </message>
    <message>
        <source>Design Parameters</source>
        <translation>Design Parameters</translation>
    </message>
    <message>
        <source>Component parameters</source>
        <translation>Component Parameters</translation>
    </message>
</context>
<context>
    <name>CVorDPMSeriesSheet</name>
    <message>
        <source>粘贴</source>
        <translation>Paste</translation>
    </message>
    <message>
        <source>清除</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>修改单元格</source>
        <translation>Edit cell</translation>
    </message>
</context>
<context>
    <name>CVorDPMSeriesTableFiles</name>
    <message>
        <source>导出表格</source>
        <translation>Export table</translation>
    </message>
    <message>
        <source>Excel 工作簿 (*.xlsx);;CSV 文件 (*.csv)</source>
        <translation>Excel workbook (*.xlsx);;CSV file (*.csv)</translation>
    </message>
    <message>
        <source>正在导出...</source>
        <translation>Exporting...</translation>
    </message>
    <message>
        <source>导入表格</source>
        <translation>Import table</translation>
    </message>
    <message>
        <source>正在比较表格...</source>
        <translation>Comparing the table...</translation>
    </message>
    <message>
        <source>正在导入...</source>
        <translation>Importing...</translation>
    </message>
</context>
<context>
    <name>CVorDPMSetLibRoot</name>
    <message>
        <source>设置产品路径</source>
        <translation>Set Library Root Path</translation>
    </message>
    <message>
        <source>选择产品路径：</source>
        <translation>Library root path:</translation>
    </message>
    <message>
        <source>选择产品库根路径:</source>
        <translation>Choose the library root path:</translation>
    </message>
    <message>
        <source>设置失败</source>
        <translation>Setting the path failed</translation>
    </message>
    <message>
        <source>文件夹&quot;%1&quot;不存在，是否创建？</source>
        <translation>The folder &quot;%1&quot; does not exist. Create it?</translation>
    </message>
    <message>
        <source>产品库有未保存的修改，是否保存？</source>
        <translation>The libraries have unsaved changes. Save them?</translation>
    </message>
</context>
<context>
    <name>CVorDPMTableCreateDlg</name>
    <message>
        <source>从表格新建产品</source>
        <translation>New product from a table</translation>
    </message>
    <message>
        <source>表头所在行:</source>
        <translation>Header row:</translation>
    </message>
    <message>
        <source>产品名:</source>
        <translation>Product name:</translation>
    </message>
    <message>
        <source>命名规则:</source>
        <translation>Naming rule:</translation>
    </message>
    <message>
        <source>创建</source>
        <translation>Create</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>文件的前几行 (单击一行把它作为表头):</source>
        <translation>The file&apos;s first rows (click a row to make it the header):</translation>
    </message>
    <message>
        <source>正在读取表格...</source>
        <translation>Reading the table...</translation>
    </message>
    <message>
        <source>无法创建: %1</source>
        <translation>Cannot create: %1</translation>
    </message>
    <message>
        <source>%1 个属性 (%2), %3 个系列行</source>
        <translation>%1 properties (%2), %3 series rows</translation>
    </message>
    <message>
        <source>请输入产品名。</source>
        <translation>Please enter a product name.</translation>
    </message>
    <message>
        <source>正在创建产品...</source>
        <translation>Creating the product...</translation>
    </message>
</context>
<context>
    <name>CVorDPMTableImportDlg</name>
    <message>
        <source>删除文件中没有的系列行</source>
        <translation>Remove series rows the file lacks</translation>
    </message>
    <message>
        <source>导入表格: %1</source>
        <translation>Import table: %1</translation>
    </message>
    <message>
        <source>关键列:</source>
        <translation>Key column:</translation>
    </message>
    <message>
        <source>列:</source>
        <translation>Columns:</translation>
    </message>
    <message>
        <source>导入</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>%1: 产品表的列</source>
        <translation>%1: column of the product tables</translation>
    </message>
    <message>
        <source>%1 → 属性 %2</source>
        <translation>%1 → property %2</translation>
    </message>
    <message>
        <source>%1: 单位与属性 %2 的单位 &quot;%3&quot; 不同, 跳过</source>
        <translation>%1: unit differs from the unit &quot;%3&quot; of property %2; skipped</translation>
    </message>
    <message>
        <source>%1: 没有对应的属性, 跳过 (勾选则添加为新属性)</source>
        <translation>%1: matches no property; skipped (tick to add it as a new property)</translation>
    </message>
    <message>
        <source>%1: 添加为新属性</source>
        <translation>%1: added as a new property</translation>
    </message>
    <message>
        <source>正在比较表格...</source>
        <translation>Comparing the table...</translation>
    </message>
    <message>
        <source>另有 %1 个单元格不合适</source>
        <translation>%1 more cells do not fit</translation>
    </message>
    <message>
        <source>无法导入: %1</source>
        <translation>Cannot import: %1</translation>
    </message>
    <message>
        <source>%1 个单元格与属性不符, 无法导入</source>
        <translation>%1 cells do not fit their properties; cannot import</translation>
    </message>
    <message>
        <source>没有变化</source>
        <translation>No changes</translation>
    </message>
    <message>
        <source>新增 %1 行, 修改 %2 行, 不变 %3 行, 文件中没有 %4 行</source>
        <translation>%1 rows added, %2 changed, %3 unchanged, %4 not in the file</translation>
    </message>
</context>
<context>
    <name>CVorDPMTableImportModel</name>
    <message>
        <source>变化</source>
        <translation>Change</translation>
    </message>
    <message>
        <source>关键值</source>
        <translation>Key</translation>
    </message>
    <message>
        <source>单元格</source>
        <translation>Cells</translation>
    </message>
    <message>
        <source>新增</source>
        <translation>Added</translation>
    </message>
    <message>
        <source>修改</source>
        <translation>Changed</translation>
    </message>
    <message>
        <source>删除 (文件中没有)</source>
        <translation>Removed (not in the file)</translation>
    </message>
    <message>
        <source>保留 (文件中没有)</source>
        <translation>Kept (not in the file)</translation>
    </message>
</context>
<context>
    <name>CVorDPMTreeCtrlEx</name>
    <message>
        <source>未分类</source>
        <translation>Unclassified</translation>
    </message>
    <message>
        <source>序号</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>系列</source>
        <translation>Series</translation>
    </message>
</context>
<context>
    <name>CVorDPMVersionDlg</name>
    <message>
        <source>添加版本</source>
        <translation>Add Version</translation>
    </message>
    <message>
        <source>修改版本</source>
        <translation>Edit Version</translation>
    </message>
    <message>
        <source>版本</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>作者</source>
        <translation>Author</translation>
    </message>
    <message>
        <source>时间</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>描述</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>关闭</source>
        <translation>Close</translation>
    </message>
</context>
<context>
    <name>CVorDPMVersionEditDlg</name>
    <message>
        <source>修改版本</source>
        <translation>Edit Version</translation>
    </message>
    <message>
        <source>添加版本</source>
        <translation>Add Version</translation>
    </message>
    <message>
        <source>版本号:</source>
        <translation>Version:</translation>
    </message>
    <message>
        <source>作者:</source>
        <translation>Author:</translation>
    </message>
    <message>
        <source>时间:</source>
        <translation>Time:</translation>
    </message>
    <message>
        <source>描述:</source>
        <translation>Description:</translation>
    </message>
    <message>
        <source>添加版本失败!</source>
        <translation>Adding the version failed.</translation>
    </message>
    <message>
        <source>该版本号已存在!</source>
        <translation>This version number already exists.</translation>
    </message>
    <message>
        <source>版本号必须大于0!</source>
        <translation>The version number must be greater than 0.</translation>
    </message>
    <message>
        <source>版本记录无效!</source>
        <translation>The version record is not valid.</translation>
    </message>
    <message>
        <source>时间格式不正确，请按&quot;年-月-日 时:分:秒&quot;输入，例如 2026-01-31 08:30:00。</source>
        <translation>The time is not valid. Enter it as &quot;year-month-day hour:minute:second&quot;, for example 2026-01-31 08:30:00.</translation>
    </message>
</context>
<context>
    <name>CXTPPropertyGridItemFile</name>
    <message>
        <source>image Files (*.bmp *.jpg);;All Files (*)</source>
        <translation>Image files (*.bmp *.jpg);;All files (*)</translation>
    </message>
</context>
<context>
    <name>CatalogCheck</name>
    <message>
        <source>本库没有产品定义&quot;%1&quot;</source>
        <translation>The library has no product definition &quot;%1&quot;</translation>
    </message>
    <message>
        <source>第 %1 级分类&quot;%2&quot;之上没有第 %3 级分类</source>
        <translation>Classification &quot;%2&quot; of level %1 has no classification of level %3 above it</translation>
    </message>
    <message>
        <source>与条目 %1 重复：同一产品在同一分类下</source>
        <translation>Repeats entry %1: the same product under the same classification</translation>
    </message>
    <message>
        <source>引用的目录&quot;%1&quot;无效：没有产品库&quot;%2&quot;</source>
        <translation>The referenced catalog &quot;%1&quot; is invalid: there is no library &quot;%2&quot;</translation>
    </message>
    <message>
        <source>引用的目录&quot;%1&quot;无效：产品库&quot;%2&quot;中没有目录&quot;%3&quot;</source>
        <translation>The referenced catalog &quot;%1&quot; is invalid: library &quot;%2&quot; has no catalog &quot;%3&quot;</translation>
    </message>
</context>
<context>
    <name>CheckPictures</name>
    <message>
        <source>%1无法解码（%2 字节）</source>
        <translation>%1 does not decode (%2 bytes)</translation>
    </message>
</context>
<context>
    <name>CheckScriptRuns</name>
    <message>
        <source>脚本&quot;%1&quot;第 %2 行出错：%3</source>
        <translation>Script &quot;%1&quot; fails at line %2: %3</translation>
    </message>
    <message>
        <source>脚本&quot;%1&quot;出错：%2</source>
        <translation>Script &quot;%1&quot; fails: %2</translation>
    </message>
    <message>
        <source>脚本&quot;%1&quot;运行超过 %2 毫秒或 %3 条指令，已被停止</source>
        <translation>Script &quot;%1&quot; ran longer than %2 ms or %3 instructions and was stopped</translation>
    </message>
    <message>
        <source>脚本&quot;%1&quot;占用内存超过 %2 MB，已被停止</source>
        <translation>Script &quot;%1&quot; used more than %2 MB of memory and was stopped</translation>
    </message>
    <message>
        <source>无法运行脚本&quot;%1&quot;：%2</source>
        <translation>Script &quot;%1&quot; could not be run: %2</translation>
    </message>
    <message>
        <source>脚本&quot;%1&quot;没有绘制任何图形</source>
        <translation>Script &quot;%1&quot; draws nothing</translation>
    </message>
    <message>
        <source>脚本&quot;%1&quot;所绘图形的范围不是有限且非空的</source>
        <translation>What script &quot;%1&quot; draws has no finite, non-empty extent</translation>
    </message>
    <message>
        <source>以默认值运行时，%1</source>
        <translation>With the default values: %1</translation>
    </message>
    <message numerus="yes">
        <source>（另有 %n 组参数值同样如此）</source>
        <translation>
            <numerusform> (and %n more set of values)</numerusform>
            <numerusform> (and %n more sets of values)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CheckedFile</name>
    <message>
        <source>无法读取该文件：%1</source>
        <translation>The file cannot be read: %1</translation>
    </message>
    <message>
        <source>无法对该文件做完整性检查：%1</source>
        <translation>The file&apos;s integrity cannot be checked: %1</translation>
    </message>
    <message numerus="yes">
        <source>文件已损坏：SQLite 的完整性检查发现 %n 处问题，第一处：%1</source>
        <translation>
            <numerusform>The file is damaged: SQLite&apos;s integrity check finds %n problem: %1</numerusform>
            <numerusform>The file is damaged: SQLite&apos;s integrity check finds %n problems, the first: %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DefinitionCheck</name>
    <message>
        <source>属性&quot;%1&quot;没有参数名</source>
        <translation>Property &quot;%1&quot; has no parameter name</translation>
    </message>
    <message>
        <source>参数名&quot;%1&quot;不能用作脚本的全局变量：它不是 Lua 名称，或是 Lua 的保留字</source>
        <translation>Parameter name &quot;%1&quot; cannot be a script&apos;s global: it is not a Lua name, or it is a Lua reserved word</translation>
    </message>
    <message>
        <source>参数名&quot;%1&quot;与属性 %2 的参数名相同（不分大小写）</source>
        <translation>Parameter name &quot;%1&quot; is that of property %2 (ignoring case)</translation>
    </message>
    <message>
        <source>参数&quot;%1&quot;的单位&quot;%2&quot;不在单位表中</source>
        <translation>The unit &quot;%2&quot; of parameter &quot;%1&quot; is not in the unit table</translation>
    </message>
    <message>
        <source>产品名称&quot;%1&quot;与产品 %2 的名称相同（不分大小写）</source>
        <translation>Product name &quot;%1&quot; is that of product %2 (ignoring case)</translation>
    </message>
    <message>
        <source>命名规则&quot;%1&quot;没有任何部分，无法组成产品名称</source>
        <translation>Naming rule &quot;%1&quot; has no parts: it cannot build a product name</translation>
    </message>
    <message>
        <source>命名规则&quot;%1&quot;没有固定文字：第一部分&quot;%2&quot;总是原样使用，不会代入参数值</source>
        <translation>Naming rule &quot;%1&quot; has no literal text: its first part &quot;%2&quot; is always used as it stands, never replaced by a value</translation>
    </message>
    <message>
        <source>命名规则&quot;%1&quot;中的&quot;%2&quot;不是本定义的参数名</source>
        <translation>&quot;%2&quot; in naming rule &quot;%1&quot; is no parameter name of this definition</translation>
    </message>
    <message>
        <source>产品名称&quot;%1&quot;在本库的产品定义&quot;%2&quot;中也有</source>
        <translation>Product name &quot;%1&quot; is also in product definition &quot;%2&quot; of this library</translation>
    </message>
    <message>
        <source>图片&quot;%1&quot;</source>
        <translation>Picture &quot;%1&quot;</translation>
    </message>
    <message>
        <source>参数化形体&quot;%1&quot;的脚本 ID %2 不存在</source>
        <translation>The script ID %2 of shape &quot;%1&quot; does not exist</translation>
    </message>
    <message>
        <source>参数化形体&quot;%1&quot;的脚本参数&quot;%2&quot;不是本定义的参数名</source>
        <translation>Script parameter &quot;%2&quot; of shape &quot;%1&quot; is no parameter name of this definition</translation>
    </message>
    <message>
        <source>产品 ID %1 不存在，此行无法组成产品名称</source>
        <translation>Product ID %1 does not exist: the row cannot be named</translation>
    </message>
    <message>
        <source>参数化形体 ID %1 不存在</source>
        <translation>Shape ID %1 does not exist</translation>
    </message>
    <message>
        <source>实物图片 ID %1 不存在</source>
        <translation>Picture ID %1 does not exist</translation>
    </message>
    <message>
        <source>参数&quot;%1&quot;要求系列化检查，此行却没有它的值</source>
        <translation>Parameter &quot;%1&quot; is checked in the series, yet this row has no value for it</translation>
    </message>
    <message>
        <source>参数&quot;%1&quot;的值&quot;%2&quot;不是整数</source>
        <translation>Value &quot;%2&quot; of parameter &quot;%1&quot; is not an integer</translation>
    </message>
    <message>
        <source>参数&quot;%1&quot;的值&quot;%2&quot;不是实数</source>
        <translation>Value &quot;%2&quot; of parameter &quot;%1&quot; is not a real number</translation>
    </message>
    <message>
        <source>参数名&quot;%1&quot;与脚本可用的库、函数或绘图函数同名：传给脚本后，二者之一读不到</source>
        <translation>Parameter name &quot;%1&quot; is that of a library, function or drawing call scripts use: passed to a script, one of the two cannot be reached</translation>
    </message>
</context>
<context>
    <name>FamilyCreate</name>
    <message>
        <source>与前面的列得到相同的参数名: %1</source>
        <translation>Gives the same parameter name as a column before it: %1</translation>
    </message>
    <message>
        <source>表格中没有可以作为属性的列</source>
        <translation>The table has no column that can be a property</translation>
    </message>
    <message>
        <source>关键列必须是属性的列</source>
        <translation>The key column must be a property column</translation>
    </message>
    <message>
        <source>产品库不存在</source>
        <translation>The library does not exist</translation>
    </message>
    <message>
        <source>%1已存在，请指定其他产品名！</source>
        <translation>%1 already exists; choose another product name!</translation>
    </message>
    <message>
        <source>创建产品失败: %1</source>
        <translation>Cannot create the product: %1</translation>
    </message>
    <message>
        <source>无法添加产品 %1</source>
        <translation>Cannot add the product %1</translation>
    </message>
    <message>
        <source>无法添加系列行</source>
        <translation>Cannot add the series row</translation>
    </message>
</context>
<context>
    <name>FamilyCsvReader</name>
    <message>
        <source>已取消</source>
        <translation>Cancelled</translation>
    </message>
    <message>
        <source>文件超过 %1 行</source>
        <translation>The file has more than %1 rows</translation>
    </message>
    <message>
        <source>一行超过 %1 列</source>
        <translation>A row has more than %1 columns</translation>
    </message>
    <message>
        <source>引号没有配对: 这里开始的引号直到文件末尾都没有结束</source>
        <translation>Unbalanced quotes: the quote that starts here is not closed before the end of the file</translation>
    </message>
    <message>
        <source>引号结束后还有字符</source>
        <translation>Characters follow the closing quote</translation>
    </message>
    <message>
        <source>不是文本表格: 含有控制字符或无法识别的字节</source>
        <translation>Not a text table: it holds control characters or unreadable bytes</translation>
    </message>
    <message>
        <source>单元格超过 %1 个字符</source>
        <translation>The cell has more than %1 characters</translation>
    </message>
    <message>
        <source>文件是空的</source>
        <translation>The file is empty</translation>
    </message>
</context>
<context>
    <name>FamilyCsvWriter</name>
    <message>
        <source>写入失败: %1</source>
        <translation>Cannot write: %1</translation>
    </message>
</context>
<context>
    <name>FamilyDefinition</name>
    <message>
        <source>无法读取产品&quot;%1&quot;: %2</source>
        <translation>Cannot read the product &quot;%1&quot;: %2</translation>
    </message>
</context>
<context>
    <name>FamilyExport</name>
    <message>
        <source>无法创建文件 %1: %2</source>
        <translation>Cannot create the file %1: %2</translation>
    </message>
    <message>
        <source>已取消</source>
        <translation>Cancelled</translation>
    </message>
</context>
<context>
    <name>FamilyFileReader</name>
    <message>
        <source>无法打开文件 %1: %2</source>
        <translation>Cannot open the file %1: %2</translation>
    </message>
    <message>
        <source>文件太大 (超过 %1 MB)</source>
        <translation>The file is too large (over %1 MB)</translation>
    </message>
    <message>
        <source>不能读取旧的 Excel 97-2003 格式 (.xls)，请另存为 .xlsx 或 CSV</source>
        <translation>Cannot read the old Excel 97-2003 format (.xls); save it as .xlsx or CSV</translation>
    </message>
    <message>
        <source>无法读取文件 %1: %2</source>
        <translation>Cannot read the file %1: %2</translation>
    </message>
</context>
<context>
    <name>FamilyFixedColumns</name>
    <message>
        <source>产品名称</source>
        <translation>Product name</translation>
    </message>
    <message>
        <source>产品</source>
        <translation>Product</translation>
    </message>
    <message>
        <source>形体</source>
        <translation>Shape</translation>
    </message>
    <message>
        <source>图片</source>
        <translation>Picture</translation>
    </message>
</context>
<context>
    <name>FamilyImport</name>
    <message>
        <source>与第 %1 列对应同一个属性: %2</source>
        <translation>Matches the same property as column %1: %2</translation>
    </message>
    <message>
        <source>关键列必须是产品名称、产品、形体、图片或一个属性的列</source>
        <translation>The key column must be the product name, product, shape, picture or a property column</translation>
    </message>
    <message>
        <source>已取消</source>
        <translation>Cancelled</translation>
    </message>
    <message>
        <source>关键列是空的</source>
        <translation>The key is empty</translation>
    </message>
    <message>
        <source>关键值与第 %1 行相同: %2</source>
        <translation>The same key as row %1: %2</translation>
    </message>
    <message>
        <source>产品中有多个系列行的关键值是 %1，无法对应</source>
        <translation>Several series rows of the product have the key %1; the row cannot be matched</translation>
    </message>
    <message>
        <source>产品中还没有产品行，不能新增系列行，请先添加产品</source>
        <translation>The product has no product row yet, so no series row can be added; add a product first</translation>
    </message>
    <message>
        <source>产品中没有名为 %1 的产品</source>
        <translation>The product has no product named %1</translation>
    </message>
    <message>
        <source>产品中没有名为 %1 的形体</source>
        <translation>The product has no shape named %1</translation>
    </message>
    <message>
        <source>产品中没有名为 %1 的图片</source>
        <translation>The product has no picture named %1</translation>
    </message>
</context>
<context>
    <name>FamilyImportApply</name>
    <message>
        <source>无法添加系列行: %1</source>
        <translation>Cannot add the series row: %1</translation>
    </message>
    <message>
        <source>系列行无效: 它的产品不存在</source>
        <translation>Invalid series row: its product does not exist</translation>
    </message>
</context>
<context>
    <name>FamilyNewProperty</name>
    <message>
        <source>无法读取公共属性表: %1</source>
        <translation>Cannot read the common property table: %1</translation>
    </message>
    <message>
        <source>导入的属性</source>
        <translation>Imported properties</translation>
    </message>
    <message>
        <source>无法添加公共属性 %1: %2</source>
        <translation>Cannot add the common property %1: %2</translation>
    </message>
    <message>
        <source>属性别名或参数名已存在: %1</source>
        <translation>The property alias or parameter name exists already: %1</translation>
    </message>
</context>
<context>
    <name>FamilyProblem</name>
    <message>
        <source>第 %1 行第 %2 列: %3</source>
        <translation>Row %1, column %2: %3</translation>
    </message>
    <message>
        <source>第 %1 行: %2</source>
        <translation>Row %1: %2</translation>
    </message>
    <message>
        <source>第 %1 列: %2</source>
        <translation>Column %1: %2</translation>
    </message>
</context>
<context>
    <name>FamilySeriesEdit</name>
    <message>
        <source>无法添加系列行</source>
        <translation>Cannot add a series row</translation>
    </message>
    <message>
        <source>系列行无效: 它的产品不存在</source>
        <translation>Invalid series row: its product does not exist</translation>
    </message>
    <message>
        <source>没有 ID 为 %1 的产品</source>
        <translation>No product with the ID %1</translation>
    </message>
    <message>
        <source>没有 ID 为 %1 的形体</source>
        <translation>No shape with the ID %1</translation>
    </message>
    <message>
        <source>没有 ID 为 %1 的图片</source>
        <translation>No picture with the ID %1</translation>
    </message>
</context>
<context>
    <name>FamilyStoreWork</name>
    <message>
        <source>保存失败: %1</source>
        <translation>Saving failed: %1</translation>
    </message>
    <message>
        <source>已取消</source>
        <translation>Cancelled</translation>
    </message>
</context>
<context>
    <name>FamilyTableLayout</name>
    <message>
        <source>已取消</source>
        <translation>Cancelled</translation>
    </message>
    <message>
        <source>表头是空的</source>
        <translation>The header is empty</translation>
    </message>
    <message>
        <source>表头与第 %1 列相同: %2</source>
        <translation>The same heading as column %1: %2</translation>
    </message>
    <message>
        <source>这一行只有 %1 个单元格，表头有 %2 个</source>
        <translation>This row has %1 cells, the header %2</translation>
    </message>
    <message>
        <source>这个单元格上面没有表头</source>
        <translation>This cell has no heading above it</translation>
    </message>
</context>
<context>
    <name>FamilyValueType</name>
    <message>
        <source>不是整数: %1</source>
        <translation>Not an integer: %1</translation>
    </message>
    <message>
        <source>不是数字: %1</source>
        <translation>Not a number: %1</translation>
    </message>
</context>
<context>
    <name>FamilyXlsxReader</name>
    <message>
        <source>缺少 %1</source>
        <translation>%1 is missing</translation>
    </message>
    <message>
        <source>%1 太大</source>
        <translation>%1 is too large</translation>
    </message>
    <message>
        <source>无法解压 %1: %2</source>
        <translation>Cannot unpack %1: %2</translation>
    </message>
    <message>
        <source>%1 不是有效的 XML: %2</source>
        <translation>%1 is not valid XML: %2</translation>
    </message>
    <message>
        <source>%1 不完整</source>
        <translation>%1 is incomplete</translation>
    </message>
    <message>
        <source>不是可以读取的 XLSX 文件 (文件已损坏或不完整): %1</source>
        <translation>Not a readable XLSX file (damaged or incomplete): %1</translation>
    </message>
    <message>
        <source>工作簿中没有工作表</source>
        <translation>The workbook has no worksheet</translation>
    </message>
    <message>
        <source>已取消</source>
        <translation>Cancelled</translation>
    </message>
    <message>
        <source>文件超过 %1 行</source>
        <translation>The file has more than %1 rows</translation>
    </message>
    <message>
        <source>工作表的行不是按次序排列的</source>
        <translation>The rows of the worksheet are out of order</translation>
    </message>
    <message>
        <source>一行超过 %1 列</source>
        <translation>A row has more than %1 columns</translation>
    </message>
    <message>
        <source>单元格不是按次序排列的</source>
        <translation>The cells are out of order</translation>
    </message>
    <message>
        <source>单元格超过 %1 个字符</source>
        <translation>The cell has more than %1 characters</translation>
    </message>
    <message>
        <source>公式没有保存计算结果，请在电子表格程序中重新计算并保存</source>
        <translation>The formula was saved without its result; recalculate and save it in the spreadsheet program</translation>
    </message>
    <message>
        <source>共享字符串的编号无效</source>
        <translation>Invalid shared string number</translation>
    </message>
</context>
<context>
    <name>FamilyXlsxWriter</name>
    <message>
        <source>无法创建文件 %1</source>
        <translation>Cannot create the file %1</translation>
    </message>
    <message>
        <source>第 %1 行第 %2 列无法写入: %3</source>
        <translation>Row %1, column %2 cannot be written: %3</translation>
    </message>
    <message>
        <source>无法写入文件 %1: %2</source>
        <translation>Cannot write the file %1: %2</translation>
    </message>
    <message>
        <source>无法写入文件 %1</source>
        <translation>Cannot write the file %1</translation>
    </message>
</context>
<context>
    <name>LibraryCheck</name>
    <message>
        <source>没有产品库&quot;%1&quot;</source>
        <translation>There is no library &quot;%1&quot;</translation>
    </message>
    <message>
        <source>产品库&quot;%1&quot;中没有产品定义&quot;%2&quot;</source>
        <translation>Library &quot;%1&quot; has no product definition &quot;%2&quot;</translation>
    </message>
    <message>
        <source>产品库图片</source>
        <translation>The library picture</translation>
    </message>
</context>
<context>
    <name>VOR</name>
    <message>
        <source>整型</source>
        <translation>Integer</translation>
    </message>
    <message>
        <source>实型</source>
        <translation>Real</translation>
    </message>
    <message>
        <source>字符串</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>未知</source>
        <translation>Unknown</translation>
    </message>
</context>
<context>
    <name>VorDPMControlId</name>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>VorDPMDeleteTemplateDlg</name>
    <message>
        <source>删除模板</source>
        <translation>Delete Template</translation>
    </message>
    <message>
        <source>请选择正确的模板</source>
        <translation>Please choose a valid template.</translation>
    </message>
    <message>
        <source>确实要把&quot;%1&quot;产品放入回收站吗?</source>
        <translation>Do you really want to move the template &quot;%1&quot; to the trash?</translation>
    </message>
    <message>
        <source>删除模板&quot;%1&quot;失败: %2</source>
        <translation>Deleting the template &quot;%1&quot; failed: %2</translation>
    </message>
</context>
<context>
    <name>VorDPMSaveWork</name>
    <message>
        <source>保存失败: %1</source>
        <translation>Saving failed: %1</translation>
    </message>
</context>
<context>
    <name>VorDPMStore</name>
    <message>
        <source>产品库信息</source>
        <translation>library information</translation>
    </message>
    <message>
        <source>产品目录</source>
        <translation>catalog</translation>
    </message>
    <message>
        <source>产品定义</source>
        <translation>product definition</translation>
    </message>
    <message>
        <source>产品模板</source>
        <translation>product template</translation>
    </message>
    <message>
        <source>公共表</source>
        <translation>common table</translation>
    </message>
    <message>
        <source>%1: 不是 VorDPM %2文件</source>
        <translation>%1: not a VorDPM %2 file</translation>
    </message>
    <message>
        <source>%1: 由较新的版本写入(结构版本 %2，本程序最高可读 %3)</source>
        <translation>%1: written by a newer version (schema %2, this program reads up to %3)</translation>
    </message>
    <message>
        <source>%1: 表 %3 的第 %2 行含有超出本程序可保存范围的数字</source>
        <translation>%1: row %2 of table %3 holds a number outside the range this program can keep</translation>
    </message>
    <message>
        <source>%1: 自加载以来已被其他用户修改</source>
        <translation>%1: changed by another user since it was loaded</translation>
    </message>
    <message>
        <source>%1: 自加载以来已被其他用户删除或重命名</source>
        <translation>%1: removed or renamed by another user since it was loaded</translation>
    </message>
    <message>
        <source>%1: 缺少表 %2，或其列不全</source>
        <translation>%1: table %2 is missing or lacks columns</translation>
    </message>
    <message>
        <source>%1: 无法写入</source>
        <translation>%1: cannot be written</translation>
    </message>
    <message>
        <source>%1: 不能用作库根目录</source>
        <translation>%1: cannot be used as the library root</translation>
    </message>
    <message>
        <source>%1: 无法创建文件夹</source>
        <translation>%1: cannot create the folder</translation>
    </message>
    <message>
        <source>%1: 无法复制</source>
        <translation>%1: cannot be copied</translation>
    </message>
    <message>
        <source>没有打开的文件</source>
        <translation>no file is open</translation>
    </message>
    <message>
        <source>另一个进程的保存被中断，需由可写入该文件的用户打开一次，以撤销未完成的保存</source>
        <translation>a save by another process was interrupted; someone who may write the file has to open it once to undo the unfinished save</translation>
    </message>
    <message>
        <source>文件被其他进程锁定</source>
        <translation>the file is locked by another process</translation>
    </message>
    <message>
        <source>文件只读，无法写入</source>
        <translation>the file is read-only</translation>
    </message>
    <message>
        <source>没有权限</source>
        <translation>permission denied</translation>
    </message>
    <message>
        <source>内存不足</source>
        <translation>out of memory</translation>
    </message>
    <message>
        <source>读写文件出错</source>
        <translation>reading or writing the file failed</translation>
    </message>
    <message>
        <source>文件已损坏</source>
        <translation>the file is damaged</translation>
    </message>
    <message>
        <source>磁盘已满</source>
        <translation>the disk is full</translation>
    </message>
    <message>
        <source>文件无法打开</source>
        <translation>the file cannot be opened</translation>
    </message>
    <message>
        <source>不是数据库文件</source>
        <translation>not a database file</translation>
    </message>
    <message>
        <source>文件的结构与本程序不符</source>
        <translation>the file is not laid out as this program expects</translation>
    </message>
    <message>
        <source>SQLite 错误 %1</source>
        <translation>SQLite error %1</translation>
    </message>
    <message>
        <source>文件不存在或无法打开</source>
        <translation>the file does not exist or cannot be opened</translation>
    </message>
    <message>
        <source>%1: 表 %2 已没有可用的对象 ID</source>
        <translation>%1: table %2 has no free object id left</translation>
    </message>
    <message>
        <source>&quot;%1&quot;不能用作名称</source>
        <translation>&quot;%1&quot; cannot be used as a name</translation>
    </message>
    <message>
        <source>&quot;%1&quot;太长: 名称最多可有 %2 个字节(UTF-8 编码)</source>
        <translation>&quot;%1&quot; is too long: a name may have at most %2 bytes (in UTF-8)</translation>
    </message>
    <message>
        <source>文件系统只读</source>
        <translation>the file system is read-only</translation>
    </message>
    <message>
        <source>所在文件夹不存在</source>
        <translation>its folder does not exist</translation>
    </message>
    <message>
        <source>名称过长</source>
        <translation>the name is too long</translation>
    </message>
    <message>
        <source>系统错误 %1</source>
        <translation>system error %1</translation>
    </message>
    <message>
        <source>%1: 已存在</source>
        <translation>%1: exists already</translation>
    </message>
    <message>
        <source>&quot;%1&quot;已存在</source>
        <translation>&quot;%1&quot; exists already</translation>
    </message>
    <message>
        <source>&quot;%1&quot;不存在</source>
        <translation>&quot;%1&quot; does not exist</translation>
    </message>
    <message>
        <source>%1: 已被其他用户删除或重命名</source>
        <translation>%1: removed or renamed by another user</translation>
    </message>
    <message>
        <source>%1: 不是普通文件</source>
        <translation>%1: not a regular file</translation>
    </message>
    <message>
        <source>%1: 已拒绝，它指向库根目录 %2 之外</source>
        <translation>%1: refused, it leads outside the library root %2</translation>
    </message>
    <message>
        <source>%1: 无法移入回收站</source>
        <translation>%1: cannot be moved to the trash</translation>
    </message>
    <message>
        <source>%1: 已被移到 %2</source>
        <translation>%1: moved to %2</translation>
    </message>
    <message>
        <source>%1: 无法连接数据库服务器(%2)</source>
        <translation>%1: cannot connect to the database server (%2)</translation>
    </message>
    <message>
        <source>%1: 与数据库服务器的连接已断开，未写入任何内容；请稍后重试</source>
        <translation>%1: the connection to the database server was lost; nothing was written, try again later</translation>
    </message>
    <message>
        <source>%1: 当前数据库角色只能读取，不能保存或修改产品库</source>
        <translation>%1: this database role may only read; it cannot save or change the libraries</translation>
    </message>
    <message>
        <source>%1: 数据库服务器报告错误 %2(%3)</source>
        <translation>%1: the database server reported error %2 (%3)</translation>
    </message>
    <message>
        <source>%1: 表 %3 的第 %2 行已损坏，无法读取</source>
        <translation>%1: row %2 of table %3 is damaged and cannot be read</translation>
    </message>
    <message>
        <source>%1: 不是 VorDPM 产品库根目录；请先运行 vordpm server init %1</source>
        <translation>%1: not a VorDPM library root; run vordpm server init %1</translation>
    </message>
    <message>
        <source>%1: 由较新的 vordpm 建立(结构版本 %2)；本程序只认识版本 %3</source>
        <translation>%1: made by a newer vordpm, schema %2; this one knows %3</translation>
    </message>
    <message>
        <source>%1: 数据库服务器发来的表 %2 不完整，无法读取</source>
        <translation>%1: table %2 came from the database server incomplete and cannot be read</translation>
    </message>
</context>
<context>
    <name>VorDPMTemplateTree</name>
    <message>
        <source>平台模板</source>
        <translation>Platform Templates</translation>
    </message>
</context>
</TS>
