/// <reference types="@mapeditor/tiled-api" />
// Brindlequay levels in Tiled: reads and writes the game's level XML
// directly, so the XML stays the one format the game knows.
//
// Each body becomes a polygon object: its idname is the object's name, its
// type the object's class, its params and attributes typed custom
// properties, its targets object references (target1, target2, ...). Tiled's
// y axis points down and the game's up, so y is negated both ways. Bodies
// sit in one object layer per depth (z-shift); the order of bodies in the
// file is the order of object ids, so a round trip keeps it.

(function () {
"use strict";

var PARAMS = ["targets", "solid", "entity", "outlined", "outlinecolour", "outlinewidth", "texhscale",
              "texhshift", "texvscale", "texvshift", "texrotate", "texture", "textured", "visible",
              "z-shift", "mass"];
var BOOL_PARAMS = ["solid", "entity", "outlined", "textured", "visible"];
var TEXT_PARAMS = ["targets", "texture", "outlinecolour"];
// Properties that carry the polygon's extras rather than attributes.
var EXTRAS = ["colour", "colours", "texcoords", "vertexz", "comment"];
var ATTRIBUTE_PREFIX = "a:";
var ROOT_PREFIX = "root:";

function contains(list, item) { return list.indexOf(item) >= 0; }

// ---- A small XML reader: elements, attributes, comments, declarations.

function decodeEntities(text, line) {
    return text.replace(/&(#x[0-9a-fA-F]+|#[0-9]+|amp|lt|gt|quot|apos);/g, function (all, name) {
        if (name[0] === "#") {
            var code = name[1] === "x" ? parseInt(name.substr(2), 16) : parseInt(name.substr(1), 10);
            if (!(code > 0 && code <= 0x10ffff))
                throw new Error("line " + line + ": bad character reference " + all);
            return String.fromCharCode(code);
        }
        return { amp: "&", lt: "<", gt: ">", quot: "\"", apos: "'" }[name];
    });
}

var CLOSE_TAG = /<\/([A-Za-z_:][-\w:.]*)\s*>/y;
var OPEN_TAG = /<([A-Za-z_:][-\w:.]*)/y;
var SPACE = /\s*/y;
var ATTRIBUTE = /([A-Za-z_:][-\w:.]*)\s*=\s*("([^"]*)"|'([^']*)')/y;

function parseXml(text) {
    var pos = 0, line = 1;
    var root = null, stack = [], pendingComments = [];
    function fail(message) { throw new Error("line " + line + ": " + message); }
    // Matches a sticky pattern right at the current position.
    function at(pattern) {
        pattern.lastIndex = pos;
        return pattern.exec(text);
    }
    function advance(to) {
        for (var i = pos; i < to; ++i)
            if (text.charCodeAt(i) === 10) ++line;
        pos = to;
    }
    function skipPast(marker, what) {
        var end = text.indexOf(marker, pos);
        if (end < 0) fail("unterminated " + what);
        advance(end + marker.length);
    }
    while (pos < text.length) {
        var lt = text.indexOf("<", pos);
        if (lt < 0) { advance(text.length); break; }
        advance(lt);
        if (text.startsWith("<!--", pos)) {
            var start = pos + 4;
            skipPast("-->", "comment");
            // Kept for the element that follows, so a level's notes survive.
            pendingComments.push(text.substring(start, pos - 3));
            continue;
        }
        if (text.startsWith("<?", pos)) { skipPast("?>", "declaration"); continue; }
        if (text.startsWith("<![CDATA[", pos)) { skipPast("]]>", "CDATA section"); continue; }
        if (text.startsWith("<!", pos)) { skipPast(">", "declaration"); continue; }
        if (text.startsWith("</", pos)) {
            var close = at(CLOSE_TAG);
            if (!close) fail("bad closing tag");
            var open = stack.pop();
            if (!open || open.name !== close[1]) fail("</" + close[1] + "> does not close <" + (open ? open.name : "nothing") + ">");
            advance(pos + close[0].length);
            continue;
        }
        var nameMatch = at(OPEN_TAG);
        if (!nameMatch) fail("bad tag");
        var element = { name: nameMatch[1], attributes: {}, order: [], children: [], line: line,
                        comments: pendingComments };
        pendingComments = [];
        advance(pos + nameMatch[0].length);
        for (;;) {
            var rest = at(SPACE);
            advance(pos + rest[0].length);
            if (pos >= text.length) fail("unterminated tag <" + element.name + ">");
            if (text.startsWith("/>", pos)) { advance(pos + 2); element.empty = true; break; }
            if (text[pos] === ">") { advance(pos + 1); break; }
            var attr = at(ATTRIBUTE);
            if (!attr) fail("bad attribute in <" + element.name + ">");
            var value = attr[3] !== undefined ? attr[3] : attr[4];
            if (element.attributes.hasOwnProperty(attr[1])) fail("attribute " + attr[1] + " given twice");
            element.attributes[attr[1]] = decodeEntities(value, line);
            element.order.push(attr[1]);
            advance(pos + attr[0].length);
        }
        if (stack.length) stack[stack.length - 1].children.push(element);
        else if (!root) root = element;
        else fail("more than one root element");
        if (!element.empty) stack.push(element);
    }
    if (stack.length) fail("<" + stack[stack.length - 1].name + "> is never closed");
    if (!root) throw new Error("not an XML document: no root element");
    return root;
}

function childrenNamed(element, name) {
    return element.children.filter(function (c) { return c.name === name; });
}

function escapeXml(text) {
    return String(text).replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;")
        .replace(/"/g, "&quot;").replace(/\n/g, "&#10;").replace(/\r/g, "&#13;").replace(/\t/g, "&#9;");
}

// ---- Values

// Numbers print back as they were read, so only texts that do become numbers.
function typedValue(text) {
    if (text === "true") return true;
    if (text === "false") return false;
    if (/^-?(0|[1-9][0-9]{0,14})(\.[0-9]+)?$/.test(text) && text !== "-0") {
        var n = Number(text);
        if (String(n) === text) return n;
    }
    return text;
}

function formatNumber(n) {
    var short = Number(Number(n).toPrecision(12));
    return String(Object.is(short, -0) ? 0 : short);
}

// Read as the game reads them: a text that is no number counts as 0.
function numberList(text) {
    return text.split(",").filter(function (s) { return s.length > 0; }).map(function (s) {
        var n = parseFloat(s);
        return isNaN(n) ? 0 : n;
    });
}

function getClass(object) {
    return typeof object.className === "string" ? object.className : object.type;
}

function setClass(object, name) {
    if (typeof object.className === "string") object.className = name;
    else object.type = name;
}

// ---- Reading a level into a map

function readLevel(fileName) {
    var file = new TextFile(fileName, TextFile.ReadOnly);
    var text = file.readAll();
    file.close();
    var root = parseXml(text);
    var objectsElement = childrenNamed(root, "Objects")[0];
    if (!objectsElement)
        throw new Error("not a Brindlequay level: <" + root.name + "> has no <Objects> element");

    var map = new TileMap();
    map.setSize(64, 64);
    map.tileWidth = 16;
    map.tileHeight = 16;
    map.infinite = true;
    if (root.name !== "level") map.setProperty("rootelement", root.name);
    root.order.forEach(function (name) { map.setProperty(ROOT_PREFIX + name, root.attributes[name]); });

    var bodies = childrenNamed(objectsElement, "P");
    // Layers first, by depth from back to front, so objects get their ids in
    // file order as they are added.
    var depths = [];
    bodies.forEach(function (p) {
        var params = childrenNamed(p, "params")[0];
        var depth = params && params.attributes.hasOwnProperty("z-shift") ? params.attributes["z-shift"] : null;
        if (!contains(depths, depth)) depths.push(depth);
    });
    depths.sort(function (a, b) {
        if (a === null) return b === null ? 0 : (parseFloat(b) > 0 ? -1 : 1);
        if (b === null) return parseFloat(a) > 0 ? 1 : -1;
        return (parseFloat(a) || 0) - (parseFloat(b) || 0);
    });
    var layers = {};
    depths.forEach(function (depth) {
        var layer = new ObjectGroup();
        layer.name = depth === null ? "bodies" : "depth " + depth;
        if (depth !== null) layer.setProperty("z-shift", typedValue(depth));
        map.addLayer(layer);
        layers[depth === null ? "" : "=" + depth] = layer;
    });

    var pending = [];
    var byName = {};
    bodies.forEach(function (p) {
        var object = new MapObject(p.attributes.idname !== undefined ? p.attributes.idname : "");
        setClass(object, p.attributes.type !== undefined ? p.attributes.type : "");
        if (p.attributes.idname === undefined) object.setProperty("noidname", true);
        if (p.comments.length) object.setProperty("comment", p.comments.join("\n"));

        var params = childrenNamed(p, "params")[0];
        var depth = null, targets = [];
        if (params) {
            params.order.forEach(function (name) {
                var value = params.attributes[name];
                if (name === "z-shift") { depth = value; return; }
                if (name === "targets") {
                    targets = value.split(",").filter(function (s) { return s.length > 0; });
                    if (!targets.length) object.setProperty("targets", "");
                    return;
                }
                if (contains(TEXT_PARAMS, name)) object.setProperty(name, value);
                else if (contains(BOOL_PARAMS, name)) object.setProperty(name, value === "true" || value === "false" ? value === "true" : value);
                else if (contains(PARAMS, name)) object.setProperty(name, typedValue(value));
                else object.setProperty("param:" + name, value);
            });
        }

        var points = [], colours = [], coords = [], zs = [], anyCoords = false, anyZ = false;
        childrenNamed(p, "verts").forEach(function (verts) {
            childrenNamed(verts, "v").forEach(function (v) {
                var origin = numberList(v.attributes.origin || "");
                var whole = origin.length >= 2;
                points.push({ x: whole ? origin[0] : 0, y: whole ? origin[1] : 0 });
                zs.push(origin.length > 2 ? origin[2] : 0);
                if (origin.length > 2) anyZ = true;
                colours.push(v.attributes.colour ? v.attributes.colour : "255,255,255,255");
                if (v.attributes.texcoords !== undefined) anyCoords = true;
                coords.push(v.attributes.texcoords !== undefined ? v.attributes.texcoords : "0,0");
            });
        });
        if (points.length) {
            var ox = points[0].x, oy = -points[0].y;
            object.x = ox;
            object.y = oy;
            object.shape = MapObject.Polygon;
            object.polygon = points.map(function (pt) {
                return { x: Number(formatNumber(pt.x - ox)), y: Number(formatNumber(-pt.y - oy)) };
            });
        } else {
            object.shape = MapObject.Point;
            object.setProperty("novertices", true);
        }
        var sameColour = colours.every(function (c) { return c === colours[0]; });
        if (colours.length && sameColour) {
            if (colours[0] !== "255,255,255,255") object.setProperty("colour", colours[0]);
        } else if (colours.length) {
            object.setProperty("colours", colours.join(";"));
        }
        if (anyCoords) object.setProperty("texcoords", coords.join(";"));
        if (anyZ) object.setProperty("vertexz", zs.map(formatNumber).join(";"));

        childrenNamed(p, "attributes").forEach(function (group) {
            childrenNamed(group, "a").forEach(function (a) {
                var name = a.attributes.name !== undefined ? a.attributes.name : "";
                var reserved = contains(PARAMS, name) || contains(EXTRAS, name) || /^target[0-9]+$/.test(name) ||
                    name.indexOf(":") >= 0 || name === "noidname" || name === "novertices" || name === "";
                object.setProperty(reserved ? ATTRIBUTE_PREFIX + name : name,
                                   typedValue(a.attributes.value !== undefined ? a.attributes.value : ""));
            });
        });

        layers[depth === null ? "" : "=" + depth].addObject(object);
        if (!byName.hasOwnProperty(object.name)) byName[object.name] = object;
        pending.push({ object: object, targets: targets });
    });

    // Targets once every body has its id, so references can point forward.
    pending.forEach(function (entry) {
        entry.targets.forEach(function (target, i) {
            entry.object.setProperty("target" + (i + 1), byName.hasOwnProperty(target) ? byName[target] : target);
        });
    });
    return map;
}

// ---- Writing a map as a level

function collectObjects(layer, depth, out) {
    if (layer.isObjectLayer) {
        var layerDepth = layer.property("z-shift");
        var d = layerDepth !== undefined ? layerDepth : depth;
        layer.objects.forEach(function (o) { out.push({ object: o, depth: d }); });
    } else if (layer.isGroupLayer) {
        var groupDepth = layer.property("z-shift");
        for (var i = 0; i < layer.layerCount; ++i)
            collectObjects(layer.layerAt(i), groupDepth !== undefined ? groupDepth : depth, out);
    }
}

function textOf(value, byId) {
    if (value === true) return "true";
    if (value === false) return "false";
    if (typeof value === "number") return formatNumber(value);
    if (value && typeof value === "object" && value.id !== undefined) {
        var target = byId[value.id];
        return target ? target.name : "";
    }
    return value === undefined || value === null ? "" : String(value);
}

// The polygon in game coordinates, whatever shape and rotation Tiled gave it.
function gamePolygon(object) {
    var local;
    if (object.shape === MapObject.Polygon) {
        local = object.polygon.map(function (p) { return { x: p.x, y: p.y }; });
    } else if (object.shape === MapObject.Rectangle && object.width > 0 && object.height > 0) {
        local = [{ x: 0, y: 0 }, { x: object.width, y: 0 }, { x: object.width, y: object.height }, { x: 0, y: object.height }];
    } else if (object.property("novertices") === true) {
        return [];
    } else if (object.shape === MapObject.Point) {
        // A point is a 16 by 16 square around it, the size of a spawned body.
        local = [{ x: -8, y: -8 }, { x: 8, y: -8 }, { x: 8, y: 8 }, { x: -8, y: 8 }];
    } else {
        return null;
    }
    var angle = (object.rotation || 0) * Math.PI / 180;
    var c = Math.cos(angle), s = Math.sin(angle);
    // Rotated corners land a hair off round numbers; a millionth of a unit
    // is far below anything the game can tell apart.
    function snap(v) { return angle ? Math.round(v * 1e6) / 1e6 : v; }
    return local.map(function (p) {
        var x = angle ? p.x * c - p.y * s : p.x;
        var y = angle ? p.x * s + p.y * c : p.y;
        return { x: snap(object.x + x), y: snap(-(object.y + y)) };
    });
}

function splitList(text, count, fill) {
    var parts = text === undefined ? [] : String(text).split(";");
    var out = [];
    for (var i = 0; i < count; ++i) out.push(i < parts.length && parts[i] !== "" ? parts[i] : fill);
    return out;
}

function writeLevel(map, fileName) {
    var entries = [];
    for (var i = 0; i < map.layerCount; ++i) collectObjects(map.layerAt(i), undefined, entries);
    entries.sort(function (a, b) { return a.object.id - b.object.id; });
    var byId = {};
    entries.forEach(function (e) { byId[e.object.id] = e.object; });

    var rootName = map.property("rootelement") || "level";
    var rootAttributes = "";
    var mapProperties = map.properties();
    Object.keys(mapProperties).forEach(function (key) {
        if (key.indexOf(ROOT_PREFIX) === 0)
            rootAttributes += " " + key.substr(ROOT_PREFIX.length) + "=\"" + escapeXml(textOf(mapProperties[key], byId)) + "\"";
    });
    var out = ["<?xml version=\"1.0\" ?>", "<" + rootName + rootAttributes + ">", " <Objects>"];
    var problems = [];

    entries.forEach(function (entry) {
        var object = entry.object;
        var label = "body \"" + object.name + "\" (" + getClass(object) + ")";
        var points = gamePolygon(object);
        if (points === null) {
            problems.push(label + " is not a polygon, rectangle or point and was left out");
            return;
        }
        var properties = object.properties();
        var colours, coords, zs;
        if (properties.colours !== undefined) colours = splitList(properties.colours, points.length, "255,255,255,255");
        else colours = splitList(undefined, points.length, properties.colour !== undefined ? String(properties.colour) : "255,255,255,255");
        coords = properties.texcoords !== undefined ? splitList(properties.texcoords, points.length, "0,0") : null;
        zs = properties.vertexz !== undefined ? splitList(properties.vertexz, points.length, "0") : null;

        // The game wants counter-clockwise polygons (y up).
        var area = 0;
        for (var k = 0; k < points.length; ++k) {
            var a = points[k], b = points[(k + 1) % points.length];
            area += a.x * b.y - b.x * a.y;
        }
        if (area < 0) {
            points.reverse();
            colours.reverse();
            if (coords) coords.reverse();
            if (zs) zs.reverse();
        }
        var left = false, right = false;
        for (k = 0; k < points.length; ++k) {
            var p0 = points[k], p1 = points[(k + 1) % points.length], p2 = points[(k + 2) % points.length];
            var cross = (p1.x - p0.x) * (p2.y - p1.y) - (p1.y - p0.y) * (p2.x - p1.x);
            if (cross > 1e-9) left = true;
            else if (cross < -1e-9) right = true;
        }
        if (left && right) problems.push(label + " is not convex; the game needs convex polygons");

        if (properties.comment !== undefined && String(properties.comment) !== "")
            String(properties.comment).split("\n").forEach(function (c) {
                out.push("  <!--" + c.replace(/--/g, "- -").replace(/-$/, "- ") + "-->");
            });
        var head = "  <P type=\"" + escapeXml(getClass(object) || "") + "\"";
        if (properties.noidname !== true || object.name !== "") head += " idname=\"" + escapeXml(object.name) + "\"";
        out.push(head + ">");

        var params = [];
        var targets = properties.targets !== undefined ? String(properties.targets).split(",").filter(function (s) { return s.length > 0; }) : [];
        var numbered = Object.keys(properties).filter(function (key) { return /^target[0-9]+$/.test(key); })
            .sort(function (x, y) { return parseInt(x.substr(6), 10) - parseInt(y.substr(6), 10); });
        numbered.forEach(function (key) {
            var t = textOf(properties[key], byId);
            if (t !== "") targets.push(t);
        });
        var depth = properties["z-shift"] !== undefined ? properties["z-shift"] : entry.depth;
        PARAMS.forEach(function (name) {
            var value;
            if (name === "targets") {
                if (properties.targets === undefined && !numbered.length) return;
                value = targets.join(",");
            } else if (name === "z-shift") {
                if (depth === undefined) return;
                value = textOf(depth, byId);
            } else {
                if (properties[name] === undefined) return;
                value = textOf(properties[name], byId);
            }
            params.push(name + "=\"" + escapeXml(value) + "\"");
        });
        Object.keys(properties).forEach(function (key) {
            if (key.indexOf("param:") === 0) params.push(key.substr(6) + "=\"" + escapeXml(textOf(properties[key], byId)) + "\"");
        });
        if (params.length) out.push("   <params " + params.join(" ") + "/>");

        if (points.length) {
            out.push("   <verts>");
            points.forEach(function (pt, i) {
                var origin = formatNumber(pt.x) + "," + formatNumber(pt.y) + (zs ? "," + zs[i] : "");
                var line = "    <v origin=\"" + origin + "\" colour=\"" + escapeXml(colours[i]) + "\"";
                if (coords) line += " texcoords=\"" + escapeXml(coords[i]) + "\"";
                out.push(line + "/>");
            });
            out.push("   </verts>");
        }

        var attributes = [];
        Object.keys(properties).sort().forEach(function (key) {
            if (contains(PARAMS, key) || contains(EXTRAS, key) || /^target[0-9]+$/.test(key) ||
                key === "noidname" || key === "novertices" || key.indexOf("param:") === 0)
                return;
            var name = key.indexOf(ATTRIBUTE_PREFIX) === 0 ? key.substr(ATTRIBUTE_PREFIX.length) : key;
            attributes.push("    <a name=\"" + escapeXml(name) + "\" value=\"" + escapeXml(textOf(properties[key], byId)) + "\"/>");
        });
        if (attributes.length) {
            out.push("   <attributes>");
            Array.prototype.push.apply(out, attributes);
            out.push("   </attributes>");
        }
        out.push("  </P>");
    });
    out.push(" </Objects>", "</" + rootName + ">", "");

    var file = new TextFile(fileName, TextFile.WriteOnly);
    file.write(out.join("\n"));
    file.commit();
    problems.forEach(function (problem) {
        if (typeof tiled.warn === "function") tiled.warn(problem, null);
        else tiled.log(problem);
    });
    return undefined;
}

tiled.registerMapFormat("brindlequay", {
    name: "Brindlequay level (*.xml)",
    extension: "xml",
    read: readLevel,
    write: writeLevel,
});
})();
