// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/GalleryFrame.h"

using namespace Qt::StringLiterals;

namespace {

// One column on a telephone, as many as fit elsewhere. The colours keep a contrast of 4.5 and more in both looks.
const QString style = uR"css(
:root{--back:#f4f5f7;--card:#fff;--text:#1d2433;--quiet:#515b6e;--strong:#0b5c56;--line:#8a93a3;color-scheme:light dark}
@media(prefers-color-scheme:dark){:root{--back:#14181f;--card:#1f2530;--text:#eef1f6;--quiet:#b4bdcc;--strong:#63d2c4;--line:#7d8798}}
*{box-sizing:border-box}
body{margin:0;background:var(--back);color:var(--text);font:16px/1.8 Vazirmatn,Tahoma,"Noto Naskh Arabic",sans-serif}
header,main{max-width:1200px;margin:auto;padding:16px}
h1,h2,p,dl,dd{margin:0}h1,h2,header p{overflow-wrap:anywhere}h1{font-size:1.6rem}h2{font-size:1.15rem}a{color:var(--strong)}
form{display:flex;flex-wrap:wrap;gap:12px;align-items:end;margin-bottom:8px}
label{display:grid;flex:1 1 140px;color:var(--quiet)}
select,input,button{font:inherit;min-height:44px;width:100%;padding:4px 10px;border:1px solid var(--line);border-radius:8px;background:var(--card);color:var(--text)}
button{flex:0 0 auto;width:auto;cursor:pointer}
:focus-visible{outline:3px solid var(--strong);outline-offset:2px}
#cars{list-style:none;margin:12px 0;padding:0;display:grid;gap:16px;grid-template-columns:repeat(auto-fill,minmax(min(270px,100%),1fr))}
.car{background:var(--card);border-radius:12px;padding:12px;display:flex;flex-direction:column;gap:8px}
.car[hidden]{display:none}
.pictures{display:flex;gap:8px;overflow-x:auto}.pictures a{flex:0 0 100%}
.pictures img{display:block;width:100%;aspect-ratio:3/2;object-fit:cover;border-radius:8px}
.none{aspect-ratio:3/2;display:grid;place-items:center;background:var(--back);border-radius:8px;color:var(--quiet)}
dl{display:grid;grid-template-columns:auto 1fr;gap:0 12px}dt{color:var(--quiet)}
.price{margin-top:auto;font-weight:bold;color:var(--strong)}
)css"_s;

// Digits of any script count; a year or a price that a car lacks fits no limit.
const QString code = uR"js(
(function(){
"use strict";
var form=document.getElementById("filter"),count=document.getElementById("count");
var cars=Array.prototype.slice.call(document.querySelectorAll(".car"));
function number(id){
 var field=document.getElementById(id);
 if(!field)return null;
 var text=field.value.replace(/[۰-۹]/g,function(c){return c.charCodeAt(0)-0x6F0}).replace(/[٠-٩]/g,function(c){return c.charCodeAt(0)-0x660}).replace(/[^0-9]/g,"");
 return text===""?null:Number(text);
}
function between(text,from,to){
 if(from===null&&to===null)return true;
 var value=Number(text);
 return value>0&&(from===null||value>=from)&&(to===null||value<=to);
}
function show(){
 var brand=document.getElementById("brand").value,shown=0;
 var a=number("yearFrom"),b=number("yearTo"),c=number("priceFrom"),d=number("priceTo");
 cars.forEach(function(car){
  car.hidden=!((brand===""||car.dataset.brand===brand)&&between(car.dataset.year,a,b)&&between(car.dataset.price,c,d));
  if(!car.hidden)shown++;
 });
 count.textContent=shown===0?"خودرویی با این مشخصات نیست.":shown.toLocaleString("fa-IR")+" خودرو";
}
form.addEventListener("input",show);
form.addEventListener("submit",function(event){event.preventDefault()});
form.addEventListener("reset",function(){setTimeout(show)});
show();
})();
)js"_s;

QString field(const QString &id, const QString &label)
{
    return u"<label>"_s + label + u"<input id=\""_s + id + u"\" inputmode=\"numeric\" autocomplete=\"off\"></label>"_s;
}

}

QString GalleryFrame::beginning()
{
    return u"<!DOCTYPE html>\n<html lang=\"fa\" dir=\"rtl\"><head><meta charset=\"utf-8\"><meta name=\"viewport\" content=\"width=device-width,initial-scale=1\">"
           "<meta name=\"referrer\" content=\"no-referrer\"><style>"_s
        + style + u"</style>"_s;
}

QString GalleryFrame::filter(const QString &brands, bool withPrices, const QString &moneyUnit)
{
    QString html = u"<form id=\"filter\" role=\"search\" aria-label=\"جستجوی خودرو\"><label>نوع خودرو<select id=\"brand\"><option value=\"\">همه</option>"_s + brands
        + u"</select></label>"_s + field(u"yearFrom"_s, u"سال تولید از"_s) + field(u"yearTo"_s, u"سال تولید تا"_s);
    if (withPrices)
        html += field(u"priceFrom"_s, u"مبلغ از ("_s + moneyUnit + u')') + field(u"priceTo"_s, u"مبلغ تا ("_s + moneyUnit + u')');
    return html + u"<button type=\"reset\">همه خودروها</button></form><p id=\"count\" role=\"status\"></p>"_s;
}

QString GalleryFrame::script()
{
    return u"<script>"_s + code + u"</script>"_s;
}
