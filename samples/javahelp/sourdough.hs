<?xml version='1.0' encoding='ISO-8859-1'  ?>
<!DOCTYPE helpset
  PUBLIC "-//Sun Microsystems Inc.//DTD JavaHelp HelpSet Version 1.0//EN"
         "http://java.sun.com/products/javahelp/helpset_1_0.dtd">
<helpset version="1.0">

<!-- title -->
<title>The Sourdough Book</title>

<!-- maps -->
<maps>
    <homeID>welcome</homeID>
    <mapref location="sourdough.jhm" />
</maps>

<!-- views -->
<view>
    <name>TOC</name>
    <label>Table Of Contents</label>
    <type>javax.help.TOCView</type>
    <data>sourdoughTOC.xml</data>
</view>

<view>
    <name>Index</name>
    <label>Index</label>
    <type>javax.help.IndexView</type>
    <data>sourdoughIndex.xml</data>
</view>

</helpset>
